// Works in the windows of the program that this is linked into: he is there before its main function begins.
#include <cstdio>

#include "person/steps.h"

namespace {

class Somebody {
 public:
  ~Somebody() {
    const std::string failure = person_.Failure();
    std::printf("%s\n", failure.empty() ? "everything was there" : failure.c_str());
  }

 private:
  test_support::Person person_{[](test_support::Person& he) {
    Do(he, R"(
      await New Patient Information
    )");
  }};
};

const Somebody kSomebody;

}  // namespace
