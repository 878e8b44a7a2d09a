#pragma once
// A property a fuzz target checks: when it fails, the input is reported as a
// crash, so that libFuzzer keeps and minimises it.

#include <cstdio>
#include <cstdlib>

#define FUZZ_CHECK(condition)                                                               \
  do {                                                                                      \
    if (!(condition)) {                                                                     \
      std::fprintf(stderr, "%s:%d: property failed: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                         \
    }                                                                                       \
  } while (false)
