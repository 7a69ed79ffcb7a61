#include "database/dialect/postgres_comparisons.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

#include "database/dialect/date_literal.h"
#include "database/dialect/operands.h"
#include "database/dialect/queries.h"
#include "forms/text.h"

namespace host::sql {
namespace {

using MaybeType = std::optional<ColumnType>;

bool IsNumeral(std::string_view text) {
  text = forms::Trim(text);
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && stop == text.data() + text.size();
}

// A literal that nothing is done to.
bool StandsAlone(const Tokens& tokens, std::size_t i) {
  constexpr std::string_view kOperators = "+-*/%|.";
  const auto operates = [&](const Token& token) {
    return token.kind == Kind::Symbol && kOperators.find(token.text.front()) != std::string_view::npos;
  };
  return (i == 0 || !operates(tokens[i - 1])) && (i + 1 >= tokens.size() || !operates(tokens[i + 1]));
}

// False for a text that is no value of the type, as '' is none.
bool FitText(Token& literal, MaybeType type) {
  if (type == ColumnType::DateTime) {
    auto moment = IsoMoment(literal.text);
    if (moment) {
      literal.kind = Kind::Moment;
      literal.text = std::move(*moment);
    }
    return moment.has_value();
  }
  return !IsNumber(type) || IsNumeral(literal.text);
}

void MakeNull(Token& literal) {
  literal.kind = Kind::Word;
  literal.text = "NULL";
}

class Fitting {
 public:
  explicit Fitting(Tokens& statement) : statement_(statement), edits_(statement), operands_(statement) {
    if (statement[0].Is("UPDATE")) {
      set_ = {FindWord(statement, 1, "SET"), 0};
      set_.end = FindWord(statement, set_.begin, {"FROM", "WHERE"});
    }
  }

  void Make() {
    for (std::size_t i = 1; i + 1 < statement_.size(); ++i) {
      if (IsComparison(i)) {
        Compare(i);
      } else if (statement_[i].Is("BETWEEN")) {
        Between(i);
      } else if (statement_[i].Is("IN") && statement_[i + 1].Is('(')) {
        In(i);
      }
    }
    edits_.Make();
  }

 private:
  bool IsComparison(std::size_t i) const {
    constexpr std::array<std::string_view, 7> kComparisons = {"=", "<>", "!=", "<", "<=", ">", ">="};
    return statement_[i].kind == Kind::Symbol &&
           std::ranges::find(kComparisons, statement_[i].text) != kComparisons.end();
  }

  // What stands before the operator, or before its NOT.
  MaybeType Left(std::size_t i) {
    const std::size_t last = statement_[i - 1].Is("NOT") && i > 1 ? i - 2 : i - 1;
    return operands_.Ending(last);
  }

  void Compare(std::size_t i) {
    const MaybeType left = operands_.Ending(i - 1);
    const MaybeType right = operands_.Beginning(i + 1);
    const bool negative = statement_[i + 1].Is('-') && i + 2 < statement_.size() && statement_[i + 2].IsNumber();
    if (negative && IsText(left)) {
      edits_.Replace(i + 1, i + 3, {{Kind::Text, "-" + statement_[i + 2].text, false}});
    } else if (statement_[i + 1].kind == Kind::Text && StandsAlone(statement_, i + 1)) {
      if (left && !FitLiteral(i + 1, left, InSet(i))) {
        Unlike(i, *left);
      }
    } else if (statement_[i - 1].kind == Kind::Text && StandsAlone(statement_, i - 1)) {
      if (right) {
        FitLiteral(i - 1, right, false);
      }
    } else if (IsText(left) && right && !IsText(right)) {
      MakeText(i + 1, operands_.End(i + 1), *right);
    } else if (IsText(right) && left && !IsText(left)) {
      MakeText(operands_.Begin(i - 1), i, *left);
    }
  }

  void Between(std::size_t i) {
    const MaybeType type = Left(i);
    const std::size_t conjunction = operands_.End(i + 1);
    Fit(i + 1, type);
    if (conjunction + 1 < statement_.size() && statement_[conjunction].Is("AND")) {
      Fit(conjunction + 1, type);
    }
  }

  void In(std::size_t i) {
    const MaybeType type = Left(i);
    if (i + 2 >= statement_.size() || statement_[i + 2].Is("SELECT") || !type) {
      return;
    }
    Groups& groups = operands_.Brackets();
    for (const Range& part : Parts(statement_, groups, {i + 2, groups.End(i + 2)})) {
      if (part.end == part.begin + 1) {
        Fit(part.begin, type);
      }
    }
  }

  void Fit(std::size_t i, MaybeType type) {
    if (statement_[i].kind == Kind::Text) {
      if (type) {
        FitLiteral(i, type, false);
      }
    } else if (IsText(type) && statement_[i].IsNumber()) {
      statement_[i].kind = Kind::Text;
    }
  }

  // False when it has become null.
  bool FitLiteral(std::size_t i, MaybeType type, bool written) {
    Token& literal = statement_[i];
    if (FitText(literal, type) || (written && !literal.text.empty())) {
      return true;
    }
    MakeNull(literal);
    return false;
  }

  // What is unlike nothing, and each date behind it, is something.
  void Unlike(std::size_t i, ColumnType type) {
    const std::string& symbol = statement_[i].text;
    const bool behind = type == ColumnType::DateTime && symbol.front() == '>';
    if (symbol == "<>" || symbol == "!=" || behind) {
      edits_.Replace(i, i + 2, Words("IS NOT NULL"));
    }
  }

  // A text beside it is text as well: "5" where a number stands, "'5'" where it is one.
  void MakeText(std::size_t begin, std::size_t end, ColumnType type) {
    if (end == begin + 1 && statement_[begin].IsNumber()) {
      statement_[begin].kind = Kind::Text;
      return;
    }
    if (!InSet(begin)) {
      WrapAsText(edits_, begin, end, type);
    }
  }

  bool InSet(std::size_t i) const { return set_.begin < i && i < set_.end; }

  Tokens& statement_;
  Edits edits_;
  Operands operands_;
  Range set_;
};

}  // namespace

void FitSums(Tokens& statement) {
  Edits edits(statement);
  Operands operands(statement);
  std::set<std::size_t> made;  // operands that stand between two of the operators
  const auto make = [&](std::size_t begin, std::size_t end, MaybeType type) {
    if (type && !IsText(type) && made.insert(begin).second) {
      WrapAsText(edits, begin, end, *type);
    }
  };
  for (std::size_t i = 1; i + 1 < statement.size(); ++i) {
    const bool joins = statement[i].kind == Kind::Symbol && statement[i].text == "||";
    if (!joins && !statement[i].Is('+') && !statement[i].Is('-')) {
      continue;
    }
    const MaybeType left = operands.Ending(i - 1);
    const MaybeType right = operands.Beginning(i + 1);
    if (joins || (statement[i].Is('+') && (IsText(left) || IsText(right)))) {
      statement[i] = {Kind::Symbol, "||", true};
      statement[i + 1].apart = true;
      make(operands.Begin(i - 1), i, left);
      make(i + 1, operands.End(i + 1), right);
    } else if (left == ColumnType::DateTime && statement[i + 1].IsNumber()) {
      edits.Replace(i + 1, i + 2, Words("INTERVAL '1 day' * " + statement[i + 1].text));
    }
  }
  edits.Make();
}

void FitComparisons(Tokens& statement) {
  Fitting(statement).Make();
}

void FitValues(Tokens& statement) {
  if (statement.size() < 5 || !statement[1].Is("INTO") || !statement[3].Is('(')) {
    return;
  }
  Groups groups(statement);
  std::vector<MaybeType> types;
  for (const Range& column : Parts(statement, groups, {4, groups.End(4)})) {
    types.push_back(TypeOfColumn(statement[column.end - 1].text));
  }
  const auto fit = [&](Range row) {
    const std::vector<Range> values = Parts(statement, groups, row);
    for (std::size_t i = 0; i < std::min(values.size(), types.size()); ++i) {
      if (values[i].end != values[i].begin + 1) {
        continue;
      }
      Token& value = statement[values[i].begin];
      if (value.kind == Kind::Text && !FitText(value, types[i]) && value.text.empty()) {
        MakeNull(value);
      }
    }
  };
  std::size_t i = groups.After(3);
  if (i < statement.size() && statement[i].Is("VALUES")) {
    for (++i; i + 1 < statement.size() && statement[i].Is('('); ++i) {
      fit({i + 1, groups.End(i + 1)});
      i = groups.After(i);
    }
  } else if (i < statement.size() && statement[i].Is("SELECT")) {
    for (const Query& query : QueriesOf(statement)) {
      if (groups.End(query.select) == statement.size()) {
        fit(query.list);
      }
    }
  }
}

void WrapAsText(Edits& edits, std::size_t from, std::size_t to, ColumnType type) {
  switch (type) {
    case ColumnType::DateTime:
      // A date at midnight is shown without its time.
      return edits.Wrap(from, to, Words("replace(CAST("), Words("AS citext), ' 00:00:00', '')"));
    case ColumnType::Money:
      return edits.Wrap(from, to, Words("CAST(trim_scale("), Words(") AS citext)"));
    default:
      return edits.Wrap(from, to, Words("CAST("), Words("AS citext)"));
  }
}

}  // namespace host::sql
