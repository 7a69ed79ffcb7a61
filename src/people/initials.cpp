#include "people/initials.h"

#include <algorithm>
#include <set>

#include "data/literal.h"
#include "data/persons.h"
#include "forms/text.h"

namespace people {

using data::Literal;
using session::ToText;

namespace {

// In capitals. A name may begin with a quotation mark.
std::string FirstLetter(std::string_view name) {
  const std::u32string text = forms::ToUtf32(forms::ToUpper(name));
  const auto letter = std::ranges::find_if(text, [](char32_t c) {
    const bool punctuation = c >= 0x2000 && c < 0x2070;
    return (c >= U'A' && c <= U'Z') || (c >= 0xC0 && !punctuation);
  });
  return letter == text.end() ? std::string() : forms::ToUtf8({&*letter, 1});
}

}  // namespace

bool Initials::Free(std::int32_t person) const {
  const std::string initials(forms::Trim(box_.Text.get()));
  if (initials.empty()) {
    return true;
  }
  const auto other =
      statements_.Select("SELECT TOP 1 pLasNam, pFirNam FROM PATable WHERE (pDocIni=" + Literal(initials) +
                         ") AND (pID<>" + Literal(person) + ")" + statements_.Office());
  if (other->Eof()) {
    return true;
  }
  Tell("The selected initials for this person [ " + initials + " ] are in use by " +
       data::LastFirst(other->Get(0), other->Get(1)) +
       (asks_ == Asks::Employee ? ".\r\nPlease select new initials." : ""));
  box_.SetFocus();
  return false;
}

bool Initials::Propose(std::int32_t person) {
  const auto row = statements_.Select("SELECT pLasNam, pFirNam, pDocIni FROM PATable WHERE pID=" + Literal(person) +
                                      statements_.Office());
  return !row->Eof() && ToText(row->Get(2)).empty() && Offer(person, ToText(row->Get(0)), ToText(row->Get(1)));
}

bool Initials::Offer(std::int32_t person, std::string_view last, std::string_view first) {
  const std::string initials = Default(person, last, first);
  const std::string told = "[ " + initials + " ]";
  if (initials.empty() ||
      !Confirm((asks_ == Asks::Provider ? "The initials will default to " + told + ".\r\n" : std::string()) +
               "Use default initials " + told + " for this person?")) {
    return false;
  }
  box_.Text = initials;
  return true;
}

void Initials::Store(std::int32_t person) const {
  statements_.Execute("UPDATE PATable SET pDocIni=" + Literal(box_.Text.get()) + " WHERE pID=" + Literal(person) +
                      statements_.Office(" and (OfficeID = ", ")"));
}

std::string Initials::Default(std::int32_t person, std::string_view last, std::string_view first) const {
  const std::string letters = FirstLetter(first) + FirstLetter(last);
  if (letters.empty()) {
    return {};
  }
  std::set<std::string> taken;
  const auto rows = statements_.Select("SELECT pDocIni FROM PATable WHERE (pDocIni Like " +
                                       data::LikeBeginning(forms::Left(letters, 1)) + ") AND (pID<>" + Literal(person) +
                                       ")" + statements_.Office());
  for (; !rows->Eof(); rows->MoveNext()) {
    taken.insert(forms::ToUpper(ToText(rows->Get(0))));
  }
  std::string initials = letters;
  for (int number = 2; taken.contains(initials); ++number) {
    const std::string digits = std::to_string(number);
    const int room = box_.MaxLength;
    initials = forms::Fitting(letters, room == 0 ? 0 : std::max(1, room - static_cast<int>(digits.size()))) + digits;
  }
  return initials;
}

}  // namespace people
