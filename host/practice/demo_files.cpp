#include "practice/demo_files.h"

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "data/reminders.h"
#include "database/file_path.h"
#include "forms/rich_text.h"
#include "forms/text.h"
#include "practice/demo_texts.h"

namespace host {
namespace {

namespace fs = std::filesystem;
using data::ReminderKind;
using Paragraphs = std::vector<std::string_view>;

void Write(const fs::path& file, std::string_view text) {
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  if (!error && !fs::exists(file, error)) {
    std::ofstream(file, std::ios::binary) << text;
  }
}

// A paragraph in the format's own characters: ASCII, the rest as numbers.
std::string RtfParagraph(std::string_view text) {
  std::string rtf;
  for (const char32_t c : forms::ToUtf32(text)) {
    if (c == U'{' || c == U'}' || c == U'\\') {
      rtf += '\\';
    }
    rtf += c < 0x80 ? std::string(1, static_cast<char>(c)) : "\\u" + std::to_string(static_cast<std::int16_t>(c)) + "?";
  }
  return rtf + "\\par\r\n";
}

// A page with the practice at its head.
std::string Letter(std::string_view title, const Paragraphs& paragraphs) {
  std::string rtf =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss "
      "Arial;}}\\paperw12240\\paperh15840\\margl1440\\margr1440"
      "\\fs22\r\n";
  for (const std::string_view line :
       {"{Office Name}", "{Office Address Line 1}", "{Office City, State Zip}", "", "{Current date}", ""}) {
    rtf += RtfParagraph(line);
  }
  rtf += "{\\b\\fs28 " + RtfParagraph(title) + "}\\par\r\n";
  for (const std::string_view paragraph : paragraphs) {
    rtf += RtfParagraph(paragraph) + "\\par\r\n";
  }
  return rtf + RtfParagraph("{Provider Full Name}") + RtfParagraph("{Office Phone}") + "}\r\n";
}

void WriteLetters(const fs::path& folder) {
  for (const demo::Tone tone : demo::kTones) {
    const demo::RecallText& text = demo::TextOf(tone);
    std::string file(text.letter_file);
    file.replace(file.find('\\'), 1, "/");
    Write(folder / FilePath(file),
          Letter("{Recall Title}", {"Dear {Patient Full Name},", text.letter, "Yours sincerely,"}));
  }
  Write(folder / "Birthday.rtf",
        Letter("Happy birthday!",
               {"Dear {Patient First Name},",
                "All of us in the practice wish you a happy birthday, and a year full of reasons to smile.",
                "Yours sincerely,"}));
  Write(folder / "NewsLetter.RTF",
        Letter("News from {Office Name}",
               {"Dear {Patient Full Name},",
                "From now on we are there for you on Saturday mornings as well. Appointments can be confirmed by text "
                "message: tell us your cell phone number at your next visit.",
                "Children who come with their parents find a corner of their own in the waiting room.",
                "Yours sincerely,"}));
}

// What a template says, by the way it is sent.
struct Template {
  std::string_view name;  // of its file, behind the code of its kind
  Paragraphs lines;
  bool html = false;
};

struct Kind {
  ReminderKind kind;
  std::vector<Template> own;
  std::vector<Template> ready_made;  // e-mails, by their titles
};

std::vector<Kind> Kinds() {
  return {
      {ReminderKind::Recall,
       {{"SMS", {"Hello {Patient First Name}. It is time for your {Recall Title}. Please call {Office Phone}."}},
        {"EMAIL",
         {"Dear {Patient Full Name},", "It is time for your {Recall Title}. Please call us at {Office Phone}.",
          "{Office Name}"},
         true},
        {"POSTCARD",
         {"{Patient First Name}, it is time for your {Recall Title}.", "{Office Name}, {Office Phone}"},
         true},
        {"VOICE", {"This is {Office Name}. It is time for your {Recall Title}. Please call us at {Office Phone}."}},
        {"VOICE_SPANISH", {"Le llama {Office Name}. Es tiempo para su {Recall Title}. Llame al {Office Phone}."}}},
       {{"Bright smiles",
         {"Dear {Patient First Name},",
          "Bright smiles need a little care: your {Recall Title} is due on {Recall Due Date}.",
          "Call us at {Office Phone}. We look forward to seeing you!", "The team of {Office Name}"}},
        {"Short and plain", {"{Patient Full Name}: {Recall Title}, due on {Recall Due Date}.", "{Office Phone}"}}}},
      {ReminderKind::Confirmation,
       {{"SMS",
         {"{Patient First Name}, please confirm {Appointment Day of the Week}, {Appointment Date} at {Appointment "
          "Time}. {Appointment Confirmation Link}"}},
        {"EMAIL",
         {"Dear {Patient Full Name},",
          "Please confirm your appointment on {Appointment Day of the Week}, {Appointment Date} at {Appointment Time}.",
          "{Appointment Confirmation Link}", "{Office Name}"},
         true},
        {"VOICE",
         {"This is {Office Name}. {Patient First Name} has an appointment on {Appointment Date} at {Appointment "
          "Time}. Please dial 1 to confirm."}},
        {"VOICE_SPANISH",
         {"Le llama {Office Name}. {Patient First Name} tiene una cita el {Appointment Date} a las {Appointment "
          "Time}. Marque el numero 1 para confirmar."}}},
       {{"With directions",
         {"Dear {Patient Full Name},", "We expect you on {Appointment Date} at {Appointment Time}.",
          "{Location Name}, {Location Address for Map}", "{Appointment Confirmation Link}"}}}},
      {ReminderKind::Appointment,
       {{"SMS", {"{Patient First Name}, we expect you on {Appointment Date} at {Appointment Time}. {Office Name}"}},
        {"EMAIL",
         {"Dear {Patient Full Name},", "We expect you on {Appointment Date} at {Appointment Time}.",
          "{Provider Full Name}, {Location Name}"},
         true},
        {"VOICE",
         {"This is {Office Name}. We expect {Patient First Name} on {Appointment Date} at {Appointment Time}."}}},
       {{"Before a treatment",
         {"Dear {Patient Full Name},", "We expect you on {Appointment Date} at {Appointment Time}.",
          "Please take your medicine as agreed: {Patient Premed}", "{Office Name}, {Office Phone}"}}}},
      {ReminderKind::Birthday,
       {{"SMS", {"Happy birthday, {Patient First Name}! {Provider Full Name} and staff"}},
        {"EMAIL",
         {"Dear {Patient First Name},", "Happy birthday from all of us at {Office Name}!",
          "{Provider Full Name} and staff"},
         true}},
       {{"Balloons",
         {"Happy birthday, {Patient First Name}!", "May your year be as bright as your smile.",
          "{Provider Full Name} and the team of {Office Name}"}}}},
      {ReminderKind::NewsLetter,
       {},
       {{"Winter news",
         {"Dear {Patient Full Name},", "Between the years our practice is open in the mornings: {Office Phone}.",
          "{Office Name}, {Office Website Address}"}},
        {"New in the team",
         {"Dear {Patient Full Name},", "A new hygienist has joined us at {Location Name}.", "{Office Name}"}}}},
  };
}

std::string TextOf(const Template& written, bool html) {
  std::string text;
  for (const std::string_view line : written.lines) {
    text += (text.empty() ? "" : "\n") + std::string(line);
  }
  return html ? forms::WriteHtml(forms::FromPlainText(text)) : text;
}

// Below the kind's folder: its own templates, and the ready-made ones with their list.
void WriteTemplates(const fs::path& folder, const Kind& kind) {
  for (const Template& own : kind.own) {
    Write(folder / (std::string(data::TemplateCodeOf(kind.kind)) + "_" + std::string(own.name) + ".TPL"),
          TextOf(own, own.html));
  }
  const fs::path ready_made = folder / "{Ready-made}";
  std::string list;
  for (const Template& offered : kind.ready_made) {
    const std::string file = std::string(offered.name) + ".TPL";
    list += "[TAVO EMAIL TEMPLATE]\r\nFile=" + file + "\r\nTitle=" + std::string(offered.name) + "\r\n";
    Write(ready_made / file, TextOf(offered, true));
  }
  Write(ready_made / "Parameters.ini", list);
}

}  // namespace

void WriteDemoFiles(const std::string& data_folder) {
  const fs::path folder = FilePath(data_folder);
  WriteLetters(folder / "WP");
  const fs::path templates = folder / FilePath(data::kTemplatesFolder);
  for (const Kind& kind : Kinds()) {
    WriteTemplates(templates / FilePath(data::TemplateFolderOf(kind.kind)), kind);
  }
  Write(templates / FilePath(data::TemplateFolderOf(ReminderKind::Recall)) / "Friendly.TPL",
        "Hi {Patient First Name}, your {Recall Title} is due. Shall we find you a day? {Office Phone}");
}

}  // namespace host
