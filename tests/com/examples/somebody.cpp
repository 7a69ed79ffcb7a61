// Works in the windows of the program that this is linked into, after the steps in the variable STEPS. He is there
// before its main function begins.
#include <cstdio>
#include <cstdlib>

#include "person/steps.h"

namespace {

class Somebody {
 public:
  Somebody() = default;
  Somebody(const Somebody&) = delete;
  Somebody& operator=(const Somebody&) = delete;
  ~Somebody() {
    const std::string failure = person_.Failure();
    std::printf("%s\n", failure.empty() ? "everything was there" : failure.c_str());
  }

 private:
  test_support::Person person_{[](test_support::Person& he) { Do(he, std::getenv("STEPS")); }};
};

const Somebody kSomebody;

}  // namespace
