#include "base/NameOrder.h"

#include <unicode/coll.h>
#include <unicode/locid.h>

NameOrder::NameOrder() {
  UErrorCode status = U_ZERO_ERROR;
  collator_.reset(icu::Collator::createInstance(icu::Locale::getRoot(), status));
  if (U_FAILURE(status)) {
    collator_.reset();  // byte order then
    return;
  }
  collator_->setStrength(icu::Collator::SECONDARY);  // accents count, letter case does not
}

NameOrder::~NameOrder() = default;

bool NameOrder::operator()(std::string_view a, std::string_view b) const {
  if (collator_) {
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult order =
        collator_->compareUTF8(icu::StringPiece(a.data(), static_cast<int32_t>(a.size())),
                               icu::StringPiece(b.data(), static_cast<int32_t>(b.size())), status);
    if (U_SUCCESS(status) && order != UCOL_EQUAL) return order == UCOL_LESS;
  }
  return a < b;
}
