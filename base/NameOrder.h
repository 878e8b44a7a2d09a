#pragma once
// The order people expect names in: letter case aside, accented letters
// beside their plain ones ("Édith" among the E's). Names that compare alike keep a fixed order by
// their bytes, so that a sort never depends on the rows' order.
//
// One object per sort; const members may be called from one thread at a time.

#include <unicode/uversion.h>

#include <memory>
#include <string_view>

U_NAMESPACE_BEGIN
class Collator;
U_NAMESPACE_END

class NameOrder {
 public:
  NameOrder();
  ~NameOrder();
  NameOrder(const NameOrder&) = delete;
  NameOrder& operator=(const NameOrder&) = delete;

  // Whether a comes before b.
  bool operator()(std::string_view a, std::string_view b) const;

 private:
  std::unique_ptr<icu::Collator> collator_;
};
