#include "people/person_record.h"

#include "data/literal.h"
#include "forms/text.h"

namespace people {

using data::Literal;

PersonRecord::PersonRecord(session::Session& session, forms::TextBox& last_name, forms::TextBox& first_name)
    : RecordBinding(session, "Patable", "pID"), statements_(session), last_name_(last_name), first_name_(first_name) {
  nickname_.AccessibleName = "Nickname";
  first_name_.Change = [this] { NicknameFollows(); };
}

void PersonRecord::Bind(std::span<forms::TextBox> boxes, std::span<const BoundField> columns) {
  for (const BoundField& bound : columns) {
    Bind(boxes[bound.index], bound.column, bound.format);
    boxes_.push_back(&boxes[bound.index]);
  }
}

void PersonRecord::Bind(std::span<forms::Label> labels, std::span<const BoundField> columns) {
  for (const BoundField& bound : columns) {
    Bind(labels[bound.index], bound.column, bound.format);
    labels[bound.index].Visible = false;
  }
}

void PersonRecord::BindHidden(std::span<forms::Label> labels) {
  for (std::size_t i = 0; i < kHiddenColumns.size(); ++i) {
    Bind(labels[i], kHiddenColumns.at(i));
    labels[i].Visible = false;
  }
  Bind(nickname_, "pNICNAM");
}

void PersonRecord::Trim() {
  for (forms::TextBox* box : boxes_) {
    if (Changed(*box)) {
      box->Text = std::string(forms::Trim(box->Text.get()));
    }
  }
}

// Blanks around it make no other name.
void PersonRecord::NicknameFollows() {
  const std::string_view name = forms::Trim(first_name_.Text.get());
  nickname_.Caption = name == forms::Trim(Stored(first_name_)) ? Stored(nickname_) : std::string(name);
}

void PersonRecord::ShowTaken() {
  if (!Changed(first_name_)) {
    NicknameFollows();
  }
}

void PersonRecord::WriteNickname() {
  statements_.Execute("UPDATE PATABLE SET pNICNAM=" + Literal(nickname_.Caption.get()) + " WHERE pID=" + Literal(Id()) +
                      statements_.Office(" and (OfficeID = ", ") "));
}

void PersonRecord::SwapNames() {
  const std::string last = last_name_.Text;
  last_name_.Text = first_name_.Text.get();
  first_name_.Text = last;
  NicknameFollows();
}

std::string PersonRecord::FullName() const {
  return first_name_.Text.get() + " " + last_name_.Text.get();
}

}  // namespace people
