#include "recall/message_editor.h"

#include <algorithm>
#include <utility>

#include "recall/template_variables.h"

namespace recall {
namespace {

using data::ContactMethod;
using data::ReminderKind;

constexpr std::string_view kCellPhone = "CELL PHONE";
constexpr std::string_view kPostcard = "POSTCARD";

// Whether a reminder of that kind knows what the variables of the group stand for.
bool Knows(ReminderKind kind, std::string_view group) {
  const bool appoints = kind == ReminderKind::Confirmation || kind == ReminderKind::Appointment;
  const bool any = data::TemplateCodeOf(kind).empty();
  return any || (group == "Appointment" ? appoints : group != "Recall" || kind == ReminderKind::Recall);
}

}  // namespace

bool HasFormats(ContactMethod method) {
  return method == ContactMethod::Email || method == ContactMethod::PostCard;
}

std::string SampleTitle(ContactMethod method) {
  switch (method) {
    case ContactMethod::TextMessage:
      return "Sample Text Message";
    case ContactMethod::Email:
      return "Sample E-mail";
    case ContactMethod::Letter:
      return "Sample Letter";
    case ContactMethod::PostCard:
      return "Sample Postcard";
    case ContactMethod::Voice:
      return "Sample Voice Reminder";
    default:
      return "Sample Merged Message";
  }
}

MessageEditor::MessageEditor(const session::ScreenContext& context) : Rules(context) {
  optPredefined.Caption = "&Predefined template";
  optCustom.Caption = "C&ustom message";
  lblTemplates.Caption = "Te&mplates";
  lstTemplates.Heading = &lblTemplates;
  lblPop.Caption = "Insert &Variable";
  pop.Heading = &lblPop;
  lblText.Caption = "&Message";
  qe.Heading = &lblText;
  chkAutoApply.Caption = "&Automatically add instructions (Recommended)";
  txSample.Heading = &lblSample;
  txSample.ReadOnly = true;

  Add("optPredefined", optPredefined);
  Add("optCustom", optCustom);
  Add("lblTemplates", lblTemplates);
  Add("lstTemplates", lstTemplates);
  Add("lblPop", lblPop);
  Add("pop", pop);
  Add("lblText", lblText);
  Add("qe", qe);
  Add("lblUnknown", lblUnknown);
  Add("lblLength", lblLength);
  Add("chkAutoApply", chkAutoApply);
  Add("lblSample", lblSample);
  Add("txSample", txSample);
  Wire();
}

void MessageEditor::Wire() {
  qe.Change = [this] { Follow(); };
  pop.Click = [this] { TakeVariable(); };
  chkAutoApply.Click = [this] { Follow(); };
}

void MessageEditor::Show(Message message) {
  message_ = std::move(message);
  sample_as_ = message_.method;
  qe.Plain = !HasFormats(message_.method);
  chkAutoApply.Visible = message_.may_add_instructions &&
                         (message_.method == ContactMethod::TextMessage || message_.method == ContactMethod::Email);
  chkAutoApply.Value = message_.adds_instructions ? forms::CheckState::On : forms::CheckState::Off;
  ShowVariables();
  ShowText(message_.text);
  read_html_ = qe.Html;
  Follow();
}

void MessageEditor::ShowVariables() {
  std::vector<forms::ListItem> items;
  const auto offered = [this](const TemplateVariable& variable) {
    return message_.variables.empty() ? Knows(message_.kind, variable.group)
                                      : std::ranges::find(message_.variables, variable.text) != message_.variables.end();
  };
  for (const TemplateVariable& variable : TemplateVariables()) {
    if (offered(variable)) {
      items.push_back({.text = std::string(variable.group) + "\t" + std::string(variable.text)});
    }
  }
  pop.Items = std::move(items);
}

void MessageEditor::ShowText(const std::string& text) {
  const std::string current = WithCurrentVariables(text);
  if (qe.Plain) {
    qe.SetText(current);
  } else {
    qe.Html = current;
  }
}

void MessageEditor::TakeVariable() {
  const forms::ListItem* chosen = pop.Current();
  if (chosen == nullptr) {
    return;
  }
  const std::string variable = chosen->text.substr(chosen->text.find('\t') + 1);
  pop.ListIndex = -1;
  qe.DoInsert(variable);
}

bool MessageEditor::AddsInstructions() const {
  return chkAutoApply.Visible && chkAutoApply.Value == forms::CheckState::On;
}

bool MessageEditor::Modified() const {
  return !(qe.Html == read_html_) || (chkAutoApply.Visible && AddsInstructions() != message_.adds_instructions);
}

std::string MessageEditor::Stored() const {
  if (qe.Html == read_html_) {
    return message_.text;
  }
  return qe.Plain ? qe.Text() : qe.Html.get();
}

std::string MessageEditor::Sample() const {
  return qe.Plain ? qe.Text() : qe.Html.get();
}

void MessageEditor::ShowParts(bool text, bool sample) {
  for (forms::Control* control : std::initializer_list<forms::Control*>{&lblPop, &pop, &lblText, &qe, &lblLength}) {
    control->Visible = text;
  }
  lblSample.Visible = sample;
  txSample.Visible = sample;
}

void MessageEditor::Follow() {
  ShowUnknown();
  ShowLength();
  if (Change) {
    Change();
  }
}

void MessageEditor::ShowUnknown() {
  const std::string text = qe.Text();
  std::vector<forms::RichTextBox::Mark> marks;
  std::string names;
  for (const TextRange& unknown : UnknownVariables(text)) {
    marks.push_back({unknown.begin, unknown.size});
    names += (names.empty() ? "" : ", ") + text.substr(unknown.begin, unknown.size);
  }
  qe.Marks = std::move(marks);
  lblUnknown.Visible = !names.empty();
  lblUnknown.Caption = names.empty() ? "" : "Not a variable: " + names;
}

void MessageEditor::ShowLength() {}

}  // namespace recall
