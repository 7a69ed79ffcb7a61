#include "recall/RecallNotices.h"

#include <utility>

#include "editing/data_files.h"
#include "editing/editing_form.h"
#include "forms/text.h"
#include "recall/frmQuickEditor.h"
#include "recall/reply_instructions.h"
#include "recall/template_files.h"
#include "recall/template_sample.h"

namespace recall {
namespace {

using data::ContactMethod;
using forms::Answer;
using forms::Icon;

constexpr std::string_view kTitle = "Recall Setup";
constexpr std::string_view kWordProcessor = "TAVOWP.EXE /NOSPLASH=TRUE ";

struct Kind {
  std::string_view name;     // in the list
  std::string_view edit;     // what the button edits
  std::string_view title;    // behind the stage's name
  std::string_view explain;  // what becomes of it
  ContactMethod method;
};
constexpr std::array kKinds = {
    Kind{"Letter", "Letter", " Letter", "a letter of the word processor, printed and mailed.", ContactMethod::Letter},
    Kind{"Post Card", "Message", " Message", "printed on a card and mailed.", ContactMethod::PostCard},
    Kind{"Text Message", "Message", " Text Message", "sent to the cell phone.", ContactMethod::TextMessage},
    Kind{"E-Mail", "E-Mail", " E-Mail", "sent to the e-mail address.", ContactMethod::Email},
    Kind{"Voice Message", "Voice Message", " Voice Message", "read out on the telephone.", ContactMethod::Voice},
    Kind{"Spanish Voice Message", "Spanish Voice Message", " Voice Spanish Message",
         "read out on the telephone in Spanish.", ContactMethod::Voice}};

const Kind& Of(Notice notice) {
  return kKinds.at(static_cast<std::size_t>(notice));
}

bool IsFormatted(Notice notice) {
  return IsHtml(Of(notice).method);
}

// "&" stands for itself.
std::string AsCaption(const std::string& text) {
  std::string caption;
  for (const char c : text) {
    caption += c == '&' ? "&&" : std::string(1, c);
  }
  return caption;
}

// Nothing that anybody could read.
bool IsBlank(Notice notice, const std::string& text) {
  const bool html = IsFormatted(notice) && !MarkedTemplate(text);
  return forms::Trim(html ? forms::PlainText(forms::ReadHtml(text)) : text).empty();
}

const std::string* ReplyTo(Notice notice, const Notices& notices) {
  return notice == Notice::TextMessage ? &notices.text_reply : notice == Notice::Email ? &notices.email_reply : nullptr;
}

// Whether what is written is followed by an automatic reply; a text that is new is.
bool Replies(Notice notice, const Notices& notices) {
  const std::string* reply = ReplyTo(notice, notices);
  const bool is_new = notices[notice].empty() && !notices.emptied.test(static_cast<std::size_t>(notice));
  return reply != nullptr && (is_new || !reply->empty());
}

}  // namespace

RecallNotices::RecallNotices(const session::ScreenContext& context)
    : Rules(context), letters_(context.session.DataFolder()) {
  Register();
  Wire();
}

void RecallNotices::Wire() {
  picSendMethod.Moved = [this] { Choose(); };
  picSendMethod.DblClick = [this] { picWPEdit.DoClick(); };
  picWPOpen.Click = [this] { notices_.letter.empty() ? LinkLetter() : RemoveLetter(); };
  picWPEdit.Click = [this] { Chosen() == Notice::Letter ? EditLetter() : EditText(Chosen()); };
  picWPPreview.Click = [this] {
    sample_ = Chosen() != Notice::Letter && !sample_;
    preview_.Forget();
    ShowChosen();
  };
  const auto follow = [this](auto& field, Notice notice, auto text) {
    field.Change = [this, notice, text] { Typed(notice, text()); };
    field.Leave = [this, notice] { Left(notice); };
  };
  follow(txtPostCard, Notice::PostCard, [this] { return txtPostCard.Html.get(); });
  follow(txtMessage, Notice::TextMessage, [this] { return txtMessage.Text.get(); });
  follow(txtEMail, Notice::Email, [this] { return txtEMail.Html.get(); });
  follow(txtVoice, Notice::Voice, [this] { return txtVoice.Text.get(); });
  follow(txtVoiceSpanish, Notice::VoiceSpanish, [this] { return txtVoiceSpanish.Text.get(); });
}

void RecallNotices::OnLoad() {
  ReadSettings();
  ShowMethods();
}

bool RecallNotices::OnIdle() {
  if (std::exchange(preview_is_due_, false)) {
    ShowPreview();
  }
  return false;
}

void RecallNotices::Show(std::string stage_name, Notices notices) {
  stage_ = std::move(stage_name);
  notices_ = std::move(notices);
  agreed_ = notices_;
  ShowFields();
  ShowMethods();
}

Notice RecallNotices::Chosen() const {
  return static_cast<Notice>(std::max(0, picSendMethod.ListIndex.get()));
}

// A predefined template is exchanged in the editor, not written over here.
void RecallNotices::ShowFields() {
  const TemplateFiles files(context_.session, data::ReminderKind::Recall);
  const bool looks_only = editing::EditingForm::ReadOnly(*this);
  txtLetter.Text = notices_.letter;
  txtPostCard.Html = files.TextOf(notices_.postcard, ContactMethod::PostCard);
  txtMessage.Text = files.TextOf(notices_.text_message, ContactMethod::TextMessage);
  txtEMail.Html = files.TextOf(notices_.email, ContactMethod::Email);
  txtVoice.Text = files.TextOf(notices_.voice, ContactMethod::Voice);
  txtVoiceSpanish.Text = files.TextOf(notices_.voice_spanish, ContactMethod::Voice);
  txtPostCard.ReadOnly = looks_only || MarkedTemplate(notices_.postcard);
  txtEMail.ReadOnly = looks_only || MarkedTemplate(notices_.email);
}

void RecallNotices::ShowMethods() {
  std::vector<forms::ListItem> items;
  for (const Notice notice : kNotices) {
    const bool generic = notices_.emptied.test(static_cast<std::size_t>(notice));
    const std::string& text = notices_[notice];
    items.push_back({.text = std::string(Of(notice).name) + "\t" +
                             (!text.empty() ? notice == Notice::Letter ? "linked" : "written"
                              : generic     ? "generic when saved"
                                            : "none")});
  }
  picSendMethod.Items = std::move(items);
  ShowChosen();
}

// In the order of `kNotices`.
std::array<forms::Control*, kNotices.size()> RecallNotices::Fields() {
  return {&txtLetter, &txtPostCard, &txtMessage, &txtEMail, &txtVoice, &txtVoiceSpanish};
}

// A card is shown as it is printed, a message as it arrives.
void RecallNotices::Choose() {
  sample_ = Chosen() != Notice::Letter && Chosen() != Notice::PostCard;
  ShowChosen();
}

void RecallNotices::ShowChosen() {
  const Notice notice = Chosen();
  const bool letter = notice == Notice::Letter;
  lblSendExplain.Caption = stage_ + ": " + std::string(Of(notice).explain);
  const auto fields = Fields();
  for (std::size_t field = 0; field < fields.size(); ++field) {
    const bool shown = kNotices.at(field) == notice;
    fields.at(field)->Visible = shown;
    lblNotice.at(field).Visible = shown;
    lblNotice.at(field).Caption = !shown   ? ""
                                  : letter ? "Letter &File"
                                           : "&Message";  // one letter leads to what is seen
  }
  picWPOpen.Visible = letter;
  picWPOpen.Caption = notices_.letter.empty() ? "&Link Letter..." : "Un&link Letter...";
  picWPEdit.Caption = "&Edit " + std::string(Of(notice).edit);
  picWPPreview.Caption = letter ? "Read &Again" : sample_ ? "Sho&w Text" : "Show S&ample";
  picWPPreview.Enabled = !notices_[notice].empty();
  lblWPPreview.Caption = " " + std::string(Of(notice).name) + (letter ? ": " + AsCaption(notices_.letter) : "");
  preview_is_due_ = sample_;
  if (!sample_) {
    ShowPreview();
  }
}

void RecallNotices::ShowPreview() {
  const Notice notice = Chosen();
  txWPPreview.Html = notices_[notice].empty()   ? std::string()
                     : notice == Notice::Letter ? preview_.Html(notices_.letter)
                                                : MessageHtml(notice);
}

// Where what the sample needs cannot be read, the text is shown.
std::string RecallNotices::MessageHtml(Notice notice) {
  std::string text =
      TemplateFiles(context_.session, data::ReminderKind::Recall).TextOf(notices_[notice], Of(notice).method);
  if (sample_ && !Attempt([&] { text = SampleOf(notice, text); })) {
    sample_ = false;
    ShowChosen();
  }
  return IsFormatted(notice) ? text : forms::WriteHtml(forms::FromPlainText(text));
}

// With the office's instructions, as in the editor, where a reply follows the text.
std::string RecallNotices::SampleOf(Notice notice, const std::string& text) const {
  const auto kind = data::ReminderKind::Recall;
  const ContactMethod method = Of(notice).method;
  const std::string* reply = ReplyTo(notice, notices_);
  const bool replies = reply != nullptr && !reply->empty();
  return TemplateSample(context_.session,
                        {.kind = kind, .method = method, .stage = AppointmentPeriod, .total = TotalPeriod})
      .Merge(replies ? WithInstructions(text, ReplyInstructions(context_.session, kind, method), method) : text);
}

void RecallNotices::RemoveLetter() {
  if (editing::EditingForm::MayModify(*this) &&
      Confirm("Would you like to remove the letter (" + notices_.letter + ")?")) {
    Notices notices = notices_;
    notices.letter.clear();
    Take(std::move(notices));
  }
}

void RecallNotices::LinkLetter() {
  if (!editing::EditingForm::MayModify(*this)) {
    return;
  }
  const auto picked =
      context_.user.PickFile({.title = "Link Letter", .folder = letters_.Path(), .pattern = "*.RTF;*.rtf"});
  if (!picked) {
    return;
  }
  const LetterFolder::Link link = letters_.Judge(*picked);
  switch (link.verdict) {
    case LetterFolder::Verdict::May: {
      Notices notices = notices_;
      notices.letter = link.name;
      Take(std::move(notices));
      break;
    }
    case LetterFolder::Verdict::Outside:
      Tell("You can only select a file from [" + letters_.Path() + "] folder.", Icon::Exclamation);
      break;
    case LetterFolder::Verdict::TooLong:
      Tell("The file name cannot exceed 255 characters.", Icon::Exclamation);
      break;
    case LetterFolder::Verdict::Not:
      context_.user.Tell("Cannot link to the selected file [" + link.name + "]", std::string(kTitle), Icon::Critical);
      break;
  }
}

void RecallNotices::EditLetter() {
  if (notices_.letter.empty()) {
    Tell("Nothing to edit.", Icon::Information);
    return;
  }
  const std::filesystem::path file = letters_.FileOf(notices_.letter);
  if (file.empty() || !context_.session.StartProgram(std::string(kWordProcessor) + editing::TextOf(file))) {
    context_.user.Tell("The word processor could not be started with the letter [" + notices_.letter +
                           "]. It is still linked, and nothing was changed.",
                       std::string(kTitle), Icon::Critical);
  }
}

void RecallNotices::EditText(Notice notice) {
  if (!editing::EditingForm::MayModify(*this)) {
    return;
  }
  frmQuickEditor editor(context_);
  editor.Title = stage_ + std::string(Of(notice).title);
  editor.EditorType = Of(notice).method;
  editor.LanguageType = notice == Notice::VoiceSpanish ? Language::Spanish : Language::English;
  editor.emsRecordType = data::ReminderKind::Recall;
  editor.AppointmentPeriod = AppointmentPeriod.Text();
  editor.TotalPeriod = TotalPeriod.Text();
  editor.Text = notices_[notice];
  editor.AutoApplyReturnMessageVisible = ReplyTo(notice, notices_) != nullptr;
  editor.AutoApplyReturnMessageValue = Replies(notice, notices_);
  context_.user.Show(editor);
  if (editor.Canceled() || (!notices_[notice].empty() && IsBlank(notice, editor.Text) && !MayRemove())) {
    return;
  }
  Notices notices = notices_;
  Put(notices, notice, editor.Text, editor.AutoApplyReturnMessageValue);
  Take(std::move(notices));
}

// The field keeps what is typed there, and where.
void RecallNotices::Typed(Notice notice, const std::string& text) {
  Notices notices = agreed_;
  Put(notices, notice, text, Replies(notice, agreed_));
  if (notices == notices_) {
    return;
  }
  notices_ = std::move(notices);
  ShowMethods();
  if (Edited) {
    Edited(notices_);
  }
}

void RecallNotices::Left(Notice notice) {
  if (!agreed_[notice].empty() && notices_[notice].empty() && !MayRemove()) {
    Take(agreed_);
    return;
  }
  agreed_ = notices_;
  if (notices_[notice].empty()) {  // blanks alone are no text
    ShowFields();
  }
}

// A text that is removed stays remembered with its reply: a generic one will take its place.
void RecallNotices::Put(Notices& notices, Notice notice, const std::string& text, bool replies) const {
  const auto place = static_cast<std::size_t>(notice);
  const bool was_written = !notices[notice].empty();
  notices[notice] = IsBlank(notice, text) ? std::string() : text;
  const bool written = !notices[notice].empty();
  notices.emptied.set(place, !written && (was_written || notices.emptied.test(place)));
  if (ReplyTo(notice, notices) == nullptr) {
    return;
  }
  std::string& reply = notice == Notice::TextMessage ? notices.text_reply : notices.email_reply;
  if (!replies || (!written && !notices.emptied.test(place))) {
    reply.clear();
  } else if (reply.empty()) {
    reply = ReplyInstructions(context_.session, data::ReminderKind::Recall, Of(notice).method);
  }
}

bool RecallNotices::MayRemove() const {
  return context_.user.Ask({.text = "You have removed your custom message. When you save this change, a generic "
                                    "message will be created for you.\r\nAre you sure you want to continue?",
                            .buttons = forms::kYesNo,
                            .icon = Icon::Question,
                            .default_answer = Answer::No}) == Answer::Yes;
}

void RecallNotices::Take(Notices notices) {
  if (notices == notices_) {
    return;
  }
  Show(stage_, std::move(notices));
  if (Edited) {
    Edited(notices_);
  }
}

}  // namespace recall
