#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/reminders.h"
#include "recall/generic_messages.h"
#include "recall/template_text.h"
#include "session/session.h"

namespace recall {

// The name of the template that the practice writes for a kind and a method: its code and the method, "APC_EMAIL".
// The methods are SMS, EMAIL, LETTER, POSTCARD and VOICE; Spanish ones end in "_SPANISH". Empty for a kind without a
// code and for a method without a text.
std::string TemplateName(data::ReminderKind kind, data::ContactMethod method, Language language = Language::English);

// The templates of one kind of reminder, files in its folder below the data folder. A name that is no plain file name,
// or that a link leads out of the folder, is the name of none.
class TemplateFiles {
 public:
  TemplateFiles(const session::Machine& machine, data::ReminderKind kind);

  // The text of the file `name` + ".TPL", in the words that it is stored in; nothing where there is none that can be
  // read.
  std::optional<std::string> Read(std::string_view name) const;
  // There is something of that name, whether or not it can be read.
  bool Has(std::string_view name) const;
  // Whole or not at all. Throws editing::Refusal with the reason.
  void Write(std::string_view name, std::string_view text) const;

  // Those of the folders "{...}" below it, by name; of two of one name the first.
  std::vector<PredefinedTemplate> Predefined() const;
  std::optional<std::string> ReadPredefined(std::string_view name) const;

  // What a stored message says: the text of the template that it names, otherwise its own; of an e-mail that marks a
  // predefined template, the text of that. It stays as it is where the template is missing. Its variables have their
  // names of today.
  std::string TextOf(std::string stored, data::ContactMethod method) const;

 private:
  struct Found;
  std::vector<Found> FindPredefined() const;

  std::filesystem::path folder_;  // empty where the session has no data folder
};

}  // namespace recall
