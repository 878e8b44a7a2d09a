#include "catalogue/CatalogueFailure.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

namespace {

CatalogueFailureNotice& Notice() {
  static CatalogueFailureNotice notice;
  return notice;
}

}  // namespace

void NoticeCatalogueFailuresWith(CatalogueFailureNotice notice) { Notice() = std::move(notice); }

void EndOnCatalogueFailure(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  std::fflush(stdout);
  std::fflush(stderr);
  static std::mutex ending;  // never released: the process ends holding it
  static thread_local bool telling = false;
  if (!telling) {
    ending.lock();
    telling = true;
    if (Notice()) Notice()(text);
  }
  std::_Exit(1);
}

void EndOnCatalogueFailure(const CppSQLite3Exception& failure, const char* connectionMessage) {
  const bool addMessage = connectionMessage && *connectionMessage && !std::strstr(failure.Message(), connectionMessage);
  std::string text = std::string("vantrelle: catalogue statement failed: ") + failure.Message();
  if (addMessage) text += std::string("(") + connectionMessage + ")";
  EndOnCatalogueFailure(text);
}
