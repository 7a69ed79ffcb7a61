#include "views/people/person_fields_view.h"
#include "views/button_binders.h"
#include "views/text_binders.h"

namespace views {

void LayOut(FieldGroup& group, people::SexTitleField& field) {
  const auto& parts = field.Fields();
  group.Row({{parts.sex, 3}, {parts.title, 8}}, &parts.list);
}

void LayOut(FieldGroup& group, people::PhonePair& phones) {
  const auto& parts = phones.Fields();
  group.Row({{parts.home, 24}});
  group.Row({{parts.work, 24}});
  group.Below(MakeButton(group.Box(), parts.contacts));
}

void LayOut(FieldGroup& group, people::PersonField& field) {
  group.Row({{field.box, 28}}, &field.list);
}

void LayOut(FieldGroup& group, people::EmployerField& employer) {
  const auto& parts = employer.Fields();
  // The group is called what the field is.
  wxWindow* box = MakeTextBox(group.Box(), parts.box, 28);
  group.Row(nullptr, {box}, MakePickButton(group.Box(), parts.list));
  for (forms::Label& detail : parts.details) {
    group.Row(nullptr, {MakeLabel(group.Box(), detail)});
  }
  group.Below(MakeButton(group.Box(), parts.remove));
}

}  // namespace views
