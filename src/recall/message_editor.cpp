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
  instructions_ = ReplyInstructions(context_.session, message_.kind, method);
  chkAutoApply.Visible = message_.may_add_instructions && !instructions_.empty();
  chkAutoApply.Enabled = !message_.read_only;
  chkAutoApply.Value = message_.adds_instructions ? forms::CheckState::On : forms::CheckState::Off;
  const TemplateFiles files(context_.session, message_.kind);
  const auto referenced = ReferencedTemplate(message_.text);
  ShowTemplates(method == ContactMethod::Email && !referenced ? MarkedTemplate(message_.text).value_or("") : "");
  const std::string text = files.TextOf(message_.text, method);
  const auto marked = method == ContactMethod::Email ? MarkedTemplate(text) : std::nullopt;
  missing_ = referenced && !files.Read(*referenced) ? *referenced : marked.value_or("");
  document_ = method == ContactMethod::Email && IsDocument(text);
  ShowText(text);
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
  const auto current = std::ranges::find_if(
      items, [&marked](const forms::ListItem& item) { return forms::EqualsIgnoringCase(item.text, marked); });
  const bool known = !marked.empty() && current != items.end();
  const int index = known ? static_cast<int>(current - items.begin()) : -1;
  lstTemplates.Items = std::move(items);
  lstTemplates.ListIndex = index;
  shown_ = index;
  predefined_ = known;
  ShowMode();
}

void MessageEditor::ShowMode() {
  (predefined_ ? optPredefined : optCustom).Value = true;
  optPredefined.Enabled = !message_.read_only;
  optCustom.Enabled = !message_.read_only;
  lstTemplates.Enabled = predefined_ && !message_.read_only;
  qe.ReadOnly = predefined_ || message_.read_only;
  ShowVariables();
}

void MessageEditor::ShowVariables() {
  std::vector<forms::ListItem> items;
  const auto offered = [this](const TemplateVariable& variable) {
    return message_.variables.empty()
               ? Knows(message_.kind, variable.group)
               : std::ranges::find(message_.variables, variable.text) != message_.variables.end();
  };
  for (const TemplateVariable& variable : TemplateVariables()) {
    if (!qe.ReadOnly && offered(variable)) {
      items.push_back({.text = std::string(variable.group) + "\t" + std::string(variable.text)});
    }
  }
  for (const std::string_view place : {kCellPhone, kPostcard}) {
    items.push_back({.text = std::string(kShowSample) + "\t" + std::string(place)});
  }
  if (!qe.ReadOnly) {
    items.push_back({.text = std::string(kNoVariable)});
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

std::string MessageEditor::Kept() const {
  const Content now = Now();
  if (!now.predefined.empty()) {
    return TemplateMarker(now.predefined);
  }
  if (!read_.predefined.empty() || now.html != read_.html) {
    return {};
  }
  const auto named = ReferencedTemplate(message_.text);
  if (named && named->find('<') == std::string::npos) {
    return message_.text;
  }
  // One that was not found.
  return missing_.empty() || named ? std::string() : TemplateMarker(missing_);
}

std::string MessageEditor::Text() const {
  return qe.Plain ? qe.Text() : WithWholeVariables(qe.Html.get());
}

std::string MessageEditor::Stored() const {
  if (!Modified()) {
    return message_.text;
  }
  if (std::string kept = Kept(); !kept.empty()) {
    return kept;
  }
  const std::string text = Text();
  return document_ && !text.empty() ? AsDocument(text) : text;
}

bool MessageEditor::IsEmpty() const {
  return Kept().empty() && forms::Trim(PlainText()).empty();
}

std::string MessageEditor::Whole() const {
  const std::string text = Text();
  return AddsInstructions() ? WithInstructions(text, instructions_, message_.method) : text;
}

// A value may have made a link of what is none to follow.
std::string MessageEditor::Sample() const {
  std::string sample = SampleFor(message_.method).Merge(Whole());
  if (qe.Plain) {
    return sample;
  }
  const std::string safe = forms::WriteHtml(forms::ReadHtml(sample));
  return document_ ? AsDocument(safe) : safe;
}

TemplateSample MessageEditor::SampleFor(ContactMethod method) const {
  const auto period = [](std::string_view text) {
    const bool behind = text.starts_with('-');
    auto code = forms::PeriodCode::Parse(text.substr(behind ? 1 : 0)).value_or(forms::PeriodCode());
    code.number = behind ? -code.number : code.number;
    return code;
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
  if (predefined == predefined_) {
    return;
  }
  const std::string own = qe.Html;
  if (!predefined && !custom_html_.empty()) {
    qe.Html = custom_html_;
  } else if (predefined && lstTemplates.Current() != nullptr) {
    ShowChosenTemplate();
  }
  if (predefined) {
    custom_html_ = own;
  }
  predefined_ = predefined;
  ShowMode();
  Follow();
}

void MessageEditor::TakeTemplate() {
  if (predefined_ && lstTemplates.Current() != nullptr) {
    ShowChosenTemplate();
    Follow();
  }
}

void MessageEditor::ShowChosenTemplate() {
  const std::string name = lstTemplates.Current()->text;
  const auto text = TemplateFiles(context_.session, message_.kind).ReadPredefined(name);
  if (!text) {
    lstTemplates.ListIndex = predefined_ ? shown_ : -1;
    ShowMode();
    throw editing::Refusal("The template " + ToldBack(name) + " cannot be read.");
  }
  shown_ = lstTemplates.ListIndex;
  ShowText(WithCurrentVariables(*text));
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
  } else if (entry == kNoVariable) {
    qe.SetFocus();
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
