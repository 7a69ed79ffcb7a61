#include "practice/zip_codes.h"

#include <algorithm>
#include <cstddef>

// data/zip_codes.tsv, put into the program by the assembler.
#define TEXT_OF(symbol) #symbol
#define PREFIX_TEXT(prefix) TEXT_OF(prefix)
#define SYMBOL(name) PREFIX_TEXT(__USER_LABEL_PREFIX__) name
#ifdef _WIN32
#define READ_ONLY_DATA ".section .rdata,\"dr\"\n"
#else
#define READ_ONLY_DATA ".section .rodata\n"
#endif
asm(READ_ONLY_DATA ".global " SYMBOL("kZipCodesBegin") "\n" SYMBOL("kZipCodesBegin") ":\n"
    ".incbin \"zip_codes.tsv\"\n"
    ".global " SYMBOL("kZipCodesEnd") "\n" SYMBOL("kZipCodesEnd") ":\n"
    ".byte 0\n"
    ".text\n");
extern "C" {
extern const char kZipCodesBegin[];
extern const char kZipCodesEnd[];
}

namespace host {

const std::vector<Place>& UnitedStatesPlaces() {
  static const std::vector<Place> places = [] {
    std::string_view text(kZipCodesBegin, static_cast<std::size_t>(kZipCodesEnd - kZipCodesBegin));
    std::vector<Place> rows;
    rows.reserve(static_cast<std::size_t>(std::ranges::count(text, '\n')));
    const auto take = [&text](char end) {
      const auto length = text.find(end);
      const auto field = text.substr(0, length);
      text.remove_prefix(length + 1);
      return field;
    };
    while (!text.empty()) {
      const auto zip = take('\t');
      const auto city = take('\t');
      rows.push_back({zip, city, take('\n')});
    }
    return rows;
  }();
  return places;
}

}  // namespace host
