#include "catalogue/CatalogueFailure.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

void EndOnCatalogueFailure(const CppSQLite3Exception& failure, const char* connectionMessage) {
  const bool addMessage = connectionMessage && *connectionMessage &&
                          !std::strstr(failure.Message(), connectionMessage);
  std::fprintf(stderr, "vantrelle: catalogue statement failed: %s%s%s%s\n", failure.Message(),
               addMessage ? "(" : "", addMessage ? connectionMessage : "", addMessage ? ")" : "");
  std::fflush(stdout);
  std::fflush(stderr);
  std::_Exit(1);
}
