#include "home/patient_search.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

#include "data/literal.h"
#include "forms/text.h"

namespace host {
namespace {

using data::Literal;
using data::Sql;
using data::Statements;
using data::Words;

Sql Patients(const Statements& statements, const Sql& condition, Words order) {
  return Sql("SELECT PATABLE.pID, PATABLE.pLASNAM, PATABLE.pFIRNAM, PATABLE.pBIRDAT, PATABLE.pHOMPHO, "
             "PATABLE.pHomCell, PATABLE.pCIT, PATABLE.pSSN, Provider.pLASNAM AS ProviderLast, "
             "Provider.pFIRNAM AS ProviderFirst FROM PATABLE LEFT JOIN PATABLE AS Provider "
             "ON (Provider.pID = PATABLE.pPROIND)") +
         statements.OfficeJoin(" and (Provider.OfficeID = PATABLE.OfficeID)") +
         " WHERE (PATABLE.pTypPat >= '1') AND (" + condition + ")" +
         statements.Office(" AND (PATABLE.OfficeID = ", ")") + order;
}

// Column or expression, up to the last character there is.
Sql Beginning(const Sql& what, std::string_view text) {
  return what + " >= " + Literal(text) + " AND " + what + " < " + Literal(std::string(text) + "\U0010FFFF");
}

// The engine's indexes fold the letters of ASCII alone: in them a name with another letter is sought by what stands
// before that, and folded whole only among the few that have such a letter there too.
Sql NameBeginning(Words column, std::string_view name) {
  const auto other = std::ranges::find_if(name, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  if (other == name.end()) {
    return Beginning(column, name);
  }
  const std::string ascii(name.begin(), other);
  return Sql(column) + " >= " + Literal(ascii + "\u0080") + " AND " + column + " < " + Literal(ascii + "\U0010FFFF") +
         " AND " + Beginning(column, name);
}

class NameSearches {
 public:
  explicit NameSearches(const Statements& statements) : statements_(statements) {}

  void Last(std::string_view last) { Add(NameBeginning(kLast, last), " ORDER BY PATABLE.pLASNAM, PATABLE.pFIRNAM"); }
  void First(std::string_view first) {
    Add(NameBeginning(kFirst, first), " ORDER BY PATABLE.pFIRNAM, PATABLE.pLASNAM");
  }
  void Both(std::string_view last, std::string_view first) {
    Add(NameBeginning(kLast, last) + " AND " + NameBeginning(kFirst, first),
        " ORDER BY PATABLE.pLASNAM, PATABLE.pFIRNAM");
  }

  std::vector<Sql> Take() { return std::move(searches_); }

 private:
  static constexpr Words kLast = "PATABLE.pLASNAM";
  static constexpr Words kFirst = "PATABLE.pFIRNAM";

  void Add(const Sql& condition, Words order) { searches_.push_back(Patients(statements_, condition, order)); }

  const Statements& statements_;
  std::vector<Sql> searches_;
};

std::vector<Sql> ByName(const Statements& statements, std::string_view text) {
  NameSearches searches(statements);
  if (const std::size_t comma = text.find(','); comma != std::string_view::npos) {
    const std::string_view last = forms::Trim(text.substr(0, comma));
    const std::string_view first = forms::Trim(text.substr(comma + 1));
    if (last.empty() != first.empty()) {
      last.empty() ? searches.First(first) : searches.Last(last);
    } else if (!last.empty()) {
      searches.Both(last, first);
    }
    return searches.Take();
  }
  const std::size_t first_blank = text.find(' ');
  if (first_blank == std::string_view::npos) {
    searches.Last(text);
    searches.First(text);
    return searches.Take();
  }
  const auto parted = [&](std::size_t blank) {
    const std::string_view head = text.substr(0, blank);
    const std::string_view tail = forms::Trim(text.substr(blank));
    searches.Both(tail, head);
    searches.Both(head, tail);
  };
  const std::size_t last_blank = text.rfind(' ');
  parted(last_blank);
  if (first_blank != last_blank) {
    parted(first_blank);
  }
  searches.Last(text);
  searches.First(text);
  return searches.Take();
}

std::string DigitsOf(std::string_view typed) {
  std::string digits;
  std::ranges::copy_if(typed, std::back_inserter(digits), forms::IsDigit);
  return digits;
}

// The expressions that the schema's indexes hold.
Sql PhoneDigits(Words column) {
  return "REPLACE(REPLACE(REPLACE(REPLACE(REPLACE(REPLACE(" + Sql(column) +
         ", '(', ''), ')', ''), '-', ''), ' ', ''), '.', ''), '/', '')";
}

Sql LocalDigits(Words column) {
  return "SUBSTRING(" + PhoneDigits(column) + ", 4, 20)";
}

void AddByPhone(const Statements& statements, std::string digits, std::vector<Sql>& searches) {
  constexpr std::array<Words, 4> kPhones = {"PATABLE.pHOMPHO", "PATABLE.pHomCell", "PATABLE.pBUSPHO",
                                            "PATABLE.pBusCell"};
  constexpr std::size_t kLeast = 3;
  constexpr std::size_t kLocal = 7;
  constexpr std::size_t kWhole = 10;
  if (digits.size() > kWhole && digits.front() == '1') {
    digits.erase(0, 1);  // the country's
  }
  if (digits.size() < kLeast) {
    return;
  }
  for (const auto part : {PhoneDigits, LocalDigits}) {
    for (const Words phone : kPhones) {
      if (part == PhoneDigits || digits.size() <= kLocal) {
        searches.push_back(Patients(statements, Sql(phone) + " IS NOT NULL AND " + Beginning(part(phone), digits), ""));
      }
    }
  }
}

std::vector<Sql> ByNumber(const Statements& statements, std::string_view text, forms::Date today) {
  std::vector<Sql> searches;
  std::int32_t id = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
  if (error == std::errc() && end == text.data() + text.size() && id > 0) {
    searches.push_back(Patients(statements, "PATABLE.pID = " + Literal(id), ""));
  }
  if (const auto birth = forms::ParseBirthDate(text, today)) {
    searches.push_back(
        Patients(statements, "PATABLE.pBIRDAT = " + Literal(*birth), " ORDER BY PATABLE.pLASNAM, PATABLE.pFIRNAM"));
  }
  if (text.find('/') == std::string_view::npos) {
    AddByPhone(statements, DigitsOf(text), searches);
  }
  return searches;
}

bool IsNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789 ()-./+") == std::string_view::npos;
}

// Reads a statement's rows, then the next one's.
class RowsInTurn : public session::Recordset {
 public:
  RowsInTurn(const Statements& statements, std::vector<Sql> searches)
      : statements_(statements),
        searches_(std::move(searches)),
        rows_(statements_.Select(searches_.front())),
        fields_(rows_->Fields()) {
    SkipSeen();
  }

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return rows_->Eof(); }
  session::Value Get(std::size_t field) const override { return rows_->Get(field); }
  void MoveNext() override {
    rows_->MoveNext();
    SkipSeen();
  }

 private:
  void Next() { rows_ = statements_.Select(searches_[next_++]); }

  void SkipSeen() {
    while (true) {
      if (!rows_->Eof()) {
        if (seen_.insert(session::ToId(rows_->Get(0))).second) {
          return;
        }
        rows_->MoveNext();
      } else if (next_ < searches_.size()) {
        Next();
      } else {
        return;
      }
    }
  }

  Statements statements_;
  std::vector<Sql> searches_;
  std::size_t next_ = 1;
  std::unique_ptr<session::Recordset> rows_;
  std::vector<session::Field> fields_;
  std::set<std::int32_t> seen_;
};

}  // namespace

std::vector<Sql> PatientSearch(const Statements& statements, std::string_view typed, forms::Date today) {
  const std::string_view text = forms::Trim(typed);
  if (text.empty()) {
    return {};
  }
  return IsNumber(text) ? ByNumber(statements, text, today) : ByName(statements, text);
}

Sql PatientsById(const Statements& statements, const std::vector<std::int32_t>& ids) {
  Sql list;
  for (const std::int32_t id : ids) {
    list += (list.Empty() ? Sql() : Sql(", ")) + Literal(id);
  }
  return Patients(statements, "PATABLE.pID IN (" + list + ")", "");
}

std::string TypedName(std::string_view typed) {
  const std::string_view text = forms::Trim(typed);
  return IsNumber(text) ? std::string() : std::string(text);
}

std::unique_ptr<session::Recordset> InTurn(const Statements& statements, std::vector<Sql> searches) {
  return std::make_unique<RowsInTurn>(statements, std::move(searches));
}

}  // namespace host
