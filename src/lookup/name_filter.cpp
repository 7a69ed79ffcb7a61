#include "lookup/name_filter.h"

#include "data/literal.h"
#include "forms/text.h"

namespace lookup {
namespace {

using data::Sql;

class Conditions {
 public:
  Conditions(const NameColumns& columns, bool anywhere) : columns_(columns), anywhere_(anywhere) {}

  Sql Names(std::string_view last, std::string_view first) const {
    last = forms::Trim(last);
    first = forms::Trim(first);
    Sql text;
    if (!last.empty()) {
      text = "((" + columns_.last_name + ") like " + Pattern(last) + ")";
    }
    if (!first.empty()) {
      text += (text.Empty() ? Sql("((") : Sql(" AND ((")) + columns_.first_name + ") like " + Pattern(first) + ")";
    }
    return text.Empty() ? text : "(" + text + ")";
  }

  Sql Name(std::string_view name) const {
    name = forms::Trim(name);
    if (const std::size_t comma = name.find(','); comma != std::string_view::npos) {
      return Names(name.substr(0, comma), name.substr(comma + 1));
    }
    const std::size_t first_blank = name.find(' ');
    if (first_blank == std::string_view::npos) {
      return Names(name, {});
    }
    const std::size_t last_blank = name.rfind(' ');
    Sql text = Names(name, {}) + " OR " + Names(name.substr(first_blank), name.substr(0, first_blank));
    if (last_blank != first_blank) {
      text += Sql(" OR ") + Names(name.substr(last_blank), name.substr(0, last_blank));
    }
    return "(" + text + ")";
  }

 private:
  Sql Pattern(std::string_view text) const {
    return anywhere_ ? data::LikeContaining(text) : data::LikeBeginning(text);
  }

  const NameColumns& columns_;
  bool anywhere_;
};

}  // namespace

Sql NameCondition(const NameFilter& filter, const NameColumns& columns, bool anywhere) {
  const Conditions conditions(columns, anywhere);
  return filter.name.empty() ? conditions.Names(filter.last_name, filter.first_name) : conditions.Name(filter.name);
}

}  // namespace lookup
