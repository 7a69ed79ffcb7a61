#include "recall/RecallNotices.h"

#include <fstream>
#include <utility>

#include "editing/data_files.h"
#include "editing/editing_form.h"
#include "forms/text.h"
#include "recall/frmQuickEditor.h"
#include "recall/reply_instructions.h"
#include "recall/rtf_text.h"
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

std::string* ReplyTo(Notice notice, Notices& notices) {
  return notice == Notice::TextMessage ? &notices.text_reply : notice == Notice::Email ? &notices.email_reply : nullptr;
}

std::string FileText(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string text(kMostLetterBytes, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  return text;
}

bool IsThere(const std::filesystem::path& file) {
  std::error_code error;
  return !file.empty() && std::filesystem::is_regular_file(file, error);
}

}  // namespace

RecallNotices::RecallNotices(const session::ScreenContext& context)
    : Rules(context), letters_(context.session.DataFolder()) {
  Register();
  Wire();
}

void RecallNotices::Wire() {
  picSendMethod.Moved = [this] { ShowChosen(); };
  picSendMethod.DblClick = [this] { picWPEdit.DoClick(); };
  picWPOpen.Click = [this] { notices_.letter.empty() ? LinkLetter() : RemoveLetter(); };
  picWPEdit.Click = [this] { Chosen() == Notice::Letter ? EditLetter() : EditText(Chosen()); };
  picWPPreview.Click = [this] {
    sample_ = Chosen() != Notice::Letter && !sample_;
    ShowChosen();
  };
}

void RecallNotices::OnLoad() {
  ReadSettings();
  ShowMethods();
}

void RecallNotices::Show(std::string stage_name, Notices notices) {
  stage_ = std::move(stage_name);
  notices_ = std::move(notices);
  sample_ = false;
  txtLetter.Text = notices_.letter;
  txtPostCard.Html = notices_.postcard;
  txtMessage.Text = notices_.text_message;
  txtEMail.Html = notices_.email;
  txtVoice.Text = notices_.voice;
  txtVoiceSpanish.Text = notices_.voice_spanish;
  ShowMethods();
}

Notice RecallNotices::Chosen() const {
  return static_cast<Notice>(std::max(0, picSendMethod.ListIndex.get()));
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

void RecallNotices::ShowChosen() {
  const Notice notice = Chosen();
  const bool letter = notice == Notice::Letter;
  lblSendExplain.Caption = stage_ + ": " + std::string(Of(notice).explain);
  picWPOpen.Visible = letter;
  picWPOpen.Caption = notices_.letter.empty() ? "&Link Letter..." : "Un&link Letter...";
  picWPEdit.Caption = "&Edit " + std::string(Of(notice).edit);
  picWPPreview.Caption = letter ? "Read &Again" : sample_ ? "Show Te&xt" : "Show S&ample";
  picWPPreview.Enabled = !notices_[notice].empty();
  lblWPPreview.Caption = " " + std::string(Of(notice).name) + (letter ? ": " + AsCaption(notices_.letter) : "");
  txWPPreview.Html = letter ? LetterHtml() : MessageHtml(notice);
}

std::string RecallNotices::LetterHtml() const {
  if (notices_.letter.empty()) {
    return {};
  }
  const std::filesystem::path file = letters_.FileOf(notices_.letter);
  return forms::WriteHtml(IsThere(file) ? ReadRtf(FileText(file))
                                        : forms::FromPlainText("File Not Found. (" + notices_.letter + ")"));
}

// A template that cannot be read leaves the text as it is stored.
std::string RecallNotices::MessageHtml(Notice notice) const {
  std::string text =
      TemplateFiles(context_.session, data::ReminderKind::Recall).TextOf(notices_[notice], Of(notice).method);
  if (sample_) {
    const bool read = Attempt([&] {
      text = TemplateSample(context_.session, {.kind = data::ReminderKind::Recall,
                                               .method = Of(notice).method,
                                               .stage = AppointmentPeriod,
                                               .total = TotalPeriod})
                 .Merge(text);
    });
    if (!read) {
      return {};
    }
  }
  return IsFormatted(notice) ? text : forms::WriteHtml(forms::FromPlainText(text));
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
  Notices notices = notices_;
  const auto place = static_cast<std::size_t>(notice);
  std::string* reply = ReplyTo(notice, notices);
  frmQuickEditor editor(context_);
  editor.Title = stage_ + std::string(Of(notice).title);
  editor.EditorType = Of(notice).method;
  editor.LanguageType = notice == Notice::VoiceSpanish ? Language::Spanish : Language::English;
  editor.emsRecordType = data::ReminderKind::Recall;
  editor.AppointmentPeriod = AppointmentPeriod.Text();
  editor.TotalPeriod = TotalPeriod.Text();
  editor.Text = notices[notice];
  editor.AutoApplyReturnMessageVisible = reply != nullptr;
  editor.AutoApplyReturnMessageValue = reply != nullptr && (notices[notice].empty() || !reply->empty());
  context_.user.Show(editor);
  if (editor.Canceled()) {
    return;
  }
  const bool was_written = !notices[notice].empty();
  notices[notice] = IsBlank(notice, editor.Text) ? std::string() : editor.Text;
  const bool written = !notices[notice].empty();
  if (was_written && !written && !MayRemove()) {
    return;
  }
  notices.emptied.set(place, !written && (was_written || notices.emptied.test(place)));
  if (reply != nullptr) {
    if (!written || !editor.AutoApplyReturnMessageValue) {
      reply->clear();
    } else if (reply->empty()) {
      *reply = ReplyInstructions(context_.session, data::ReminderKind::Recall, Of(notice).method);
    }
  }
  Take(std::move(notices));
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
