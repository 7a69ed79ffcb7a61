#include "recall/message_editor.h"

#include <algorithm>
#include <utility>

#include "forms/text.h"
#include "recall/reply_instructions.h"
#include "recall/template_variables.h"
#include "recall/text_message_length.h"

namespace recall {
namespace {

using data::ContactMethod;
using data::ReminderKind;

constexpr std::string_view kCellPhone = "CELL PHONE";
constexpr std::string_view kPostcard = "POSTCARD";
constexpr std::string_view kShowSample = "Show the sample on";

// Whether a reminder of that kind knows what the variables of the group stand for.
bool Knows(ReminderKind kind, std::string_view group) {
  const bool appoints = kind == ReminderKind::Confirmation || kind == ReminderKind::Appointment;
  const bool any = data::TemplateCodeOf(kind).empty();
  return any || (group == "Appointment" ? appoints : group != "Recall" || kind == ReminderKind::Recall);
}

}  // namespace

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
  lblText.Caption = "Messa&ge";
  qe.Heading = &lblText;
  chkAutoApply.Caption = "&Automatically add instructions (Recommended)";
  txSample.Heading = &lblSample;
  txSample.ReadOnly = true;

  for (forms::Control* part :
       std::initializer_list<forms::Control*>{&optPredefined, &optCustom, &lblTemplates, &lstTemplates}) {
    part->Container = &picTemplates;
  }
  for (forms::Control* part : std::initializer_list<forms::Control*>{&picTemplates, &lblPop, &pop, &lblText, &qe,
                                                                     &lblUnknown, &lblLength, &chkAutoApply}) {
    part->Container = &picText;
  }
  lblSample.Container = &picSample;
  txSample.Container = &picSample;
  Add("picText", picText);
  Add("picTemplates", picTemplates);
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
  Add("picSample", picSample);
  Add("lblSample", lblSample);
  Add("txSample", txSample);
  Wire();
}

void MessageEditor::Wire() {
  optPredefined.Click = [this] { ChooseKind(); };
  optCustom.Click = [this] { ChooseKind(); };
  lstTemplates.Click = [this] { TakeTemplate(); };
  qe.Change = [this] { Follow(); };
  pop.Click = [this] { TakeVariable(); };
  chkAutoApply.Click = [this] { Follow(); };
}

void MessageEditor::Show(Message message) {
  message_ = std::move(message);
  custom_html_.clear();
  const ContactMethod method = message_.method;
  qe.Plain = !IsHtml(method);
  chkAutoApply.Visible =
      message_.may_add_instructions && (method == ContactMethod::TextMessage || method == ContactMethod::Email);
  chkAutoApply.Value = message_.adds_instructions ? forms::CheckState::On : forms::CheckState::Off;
  instructions_ = ReplyInstructions(context_.session, message_.kind, method);
  ShowVariables();
  const TemplateFiles files(context_.session, message_.kind);
  ShowTemplates(MarkedTemplate(message_.text).value_or(""));
  const auto referenced = ReferencedTemplate(message_.text);
  if (referenced && !files.Read(*referenced)) {
    missing_ = *referenced;
  }
  ShowText(files.TextOf(message_.text));
  read_ = Now();
  ShowSampleAs(method);
}

// Those that the suite offers for e-mails.
void MessageEditor::ShowTemplates(const std::string& marked) {
  std::vector<forms::ListItem> items;
  if (message_.method == ContactMethod::Email) {
    for (const PredefinedTemplate& each : TemplateFiles(context_.session, message_.kind).Predefined()) {
      items.push_back({.text = each.name});
    }
  }
  picTemplates.Visible = !items.empty();
  const auto current = std::ranges::find(items, marked, &forms::ListItem::text);
  const bool known = !marked.empty() && current != items.end();
  missing_ = known ? "" : marked;
  const int index = known ? static_cast<int>(current - items.begin()) : -1;
  lstTemplates.Items = std::move(items);
  lstTemplates.ListIndex = index;
  (known ? optPredefined : optCustom).Value = true;
  lstTemplates.Enabled = known;
  qe.ReadOnly = known;
}

void MessageEditor::ShowVariables() {
  std::vector<forms::ListItem> items;
  const auto offered = [this](const TemplateVariable& variable) {
    return message_.variables.empty()
               ? Knows(message_.kind, variable.group)
               : std::ranges::find(message_.variables, variable.text) != message_.variables.end();
  };
  for (const TemplateVariable& variable : TemplateVariables()) {
    if (offered(variable)) {
      items.push_back({.text = std::string(variable.group) + "\t" + std::string(variable.text)});
    }
  }
  for (const std::string_view place : {kCellPhone, kPostcard}) {
    items.push_back({.text = std::string(kShowSample) + "\t" + std::string(place)});
  }
  pop.Items = std::move(items);
}

void MessageEditor::ShowText(const std::string& text) {
  if (qe.Plain) {
    qe.SetText(text);
  } else {
    qe.Html = text;
  }
}

MessageEditor::Content MessageEditor::Now() const {
  const forms::ListItem* current = optPredefined.Value ? lstTemplates.Current() : nullptr;
  return {
      .predefined = current == nullptr ? "" : current->text, .html = qe.Html, .adds_instructions = AddsInstructions()};
}

bool MessageEditor::AddsInstructions() const {
  return chkAutoApply.Visible ? chkAutoApply.Value == forms::CheckState::On : message_.adds_instructions;
}

bool MessageEditor::Modified() const {
  return !(Now() == read_);
}

std::string MessageEditor::Stored() const {
  const Content now = Now();
  if (now.predefined == read_.predefined && now.html == read_.html) {
    return message_.text;
  }
  if (!now.predefined.empty()) {
    return TemplateMarker(now.predefined);
  }
  return qe.Plain ? qe.Text() : qe.Html.get();
}

std::string MessageEditor::Whole() const {
  const std::string text = qe.Plain ? qe.Text() : qe.Html.get();
  return AddsInstructions() ? WithInstructions(text, instructions_, message_.method) : text;
}

std::string MessageEditor::Sample() const {
  return SampleFor(message_.method).Merge(Whole());
}

TemplateSample MessageEditor::SampleFor(ContactMethod method) const {
  const auto period = [](const std::string& text) {
    return forms::PeriodCode::Parse(text).value_or(forms::PeriodCode());
  };
  return {context_.session,
          {.kind = message_.kind,
           .method = method,
           .stage = period(message_.appointment_period),
           .total = period(message_.total_period)}};
}

// A message of its own begins with the text of the template that was chosen last, or is what was typed before.
void MessageEditor::ChooseKind() {
  const bool predefined = optPredefined.Value;
  if (predefined == qe.ReadOnly) {
    return;
  }
  lstTemplates.Enabled = predefined;
  if (predefined) {
    custom_html_ = qe.Html;
    TakeTemplate();
  } else if (!custom_html_.empty()) {
    qe.Html = custom_html_;
  }
  qe.ReadOnly = predefined;
  Follow();
}

void MessageEditor::TakeTemplate() {
  const forms::ListItem* current = lstTemplates.Current();
  if (!optPredefined.Value || current == nullptr) {
    return;
  }
  const auto text = TemplateFiles(context_.session, message_.kind).ReadPredefined(current->text);
  if (!text) {
    throw editing::Refusal("The template " + ToldBack(current->text) + " cannot be read.");
  }
  ShowText(WithCurrentVariables(*text));
  Follow();
}

void MessageEditor::TakeVariable() {
  const forms::ListItem* chosen = pop.Current();
  if (chosen == nullptr) {
    return;
  }
  const std::string entry = chosen->text.substr(chosen->text.find('\t') + 1);
  pop.ListIndex = -1;
  if (entry == kCellPhone) {
    ShowSampleAs(ContactMethod::TextMessage);
  } else if (entry == kPostcard) {
    ShowSampleAs(ContactMethod::PostCard);
  } else {
    qe.DoInsert(entry);
  }
}

void MessageEditor::ShowParts(bool text, bool sample) {
  picText.Visible = text;
  picSample.Visible = sample;
}

void MessageEditor::Follow() {
  ShowUnknown();
  ShowSample();
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
  std::string told = names.empty() ? "" : "Not a variable: " + names;
  if (!missing_.empty() && qe.Html == read_.html) {
    told = "The template " + ToldBack(missing_) + " was not found.";
  }
  lblUnknown.Visible = !told.empty();
  lblUnknown.Caption = std::move(told);
}

// Choosing the same once more goes back to the way it is sent.
void MessageEditor::ShowSampleAs(ContactMethod method) {
  sample_as_ = sample_ && method == sample_as_ ? message_.method : method;
  sample_.emplace(SampleFor(sample_as_));
  std::string title = message_.merged_title ? "Sample Merged" : "Sample";
  title += SampleTitle(sample_as_).substr(6);
  lblSample.Caption = forms::WithMnemonic(title, 'l');
  txSample.Plain = !IsHtml(sample_as_);
  Follow();
}

void MessageEditor::ShowSample() {
  std::string text = Whole();
  if (IsHtml(sample_as_) && qe.Plain) {
    text = forms::WriteHtml(forms::FromPlainText(text));
  } else if (!IsHtml(sample_as_) && !qe.Plain) {
    text = forms::PlainText(forms::ReadHtml(text));
  }
  text = sample_->Merge(text);
  if (txSample.Plain) {
    txSample.SetText(text);
  } else {
    txSample.Html = text;
  }
  ShowLength();
}

// Of the sample, for that is what is sent.
void MessageEditor::ShowLength() {
  const std::string text = txSample.Text();
  if (sample_as_ != ContactMethod::TextMessage) {
    lblLength.Caption = forms::WithThousands(static_cast<int>(forms::CharacterCount(text))) + " characters";
    return;
  }
  const TextMessageLength length = LengthOfTextMessage(text);
  lblLength.Caption = forms::WithThousands(static_cast<int>(length.count)) + " characters, " +
                      forms::WithThousands(static_cast<int>(length.messages)) +
                      (length.messages == 1 ? " text message" : " text messages") + ", " + std::to_string(length.left) +
                      " left" + (length.unicode ? " (Unicode)" : "");
}

}  // namespace recall
