#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What stands in a stored message in the place of its words, and in the files of templates.
namespace recall {

// The template whose file a message names instead of words of its own: "Birthday" of "Template Birthday". Nothing for
// a message that begins otherwise, in whatever case.
std::optional<std::string> ReferencedTemplate(std::string_view text);
// "TEMPLATE Birthday".
std::string TemplateReference(std::string_view name);

// The predefined template that a message marks, wherever in it: "Balloons" of "<PredefinedTemplate=Balloons/>".
std::optional<std::string> MarkedTemplate(std::string_view text);
std::string TemplateMarker(std::string_view name);

// One that the suite offers ready-made.
struct PredefinedTemplate {
  std::string name;  // as it is listed and marked; free of angle brackets
  std::string file;

  friend bool operator==(const PredefinedTemplate&, const PredefinedTemplate&) = default;
};
// The templates of a "Parameters.ini": its sections "TAVO EMAIL TEMPLATE" with the keys "File" and "Title". One
// without a file is none, one without a title is called like its file.
std::vector<PredefinedTemplate> ReadTemplateList(std::string_view ini);

// The bytes of a file as UTF-8: those that are none are of Windows-1252, as older files have it.
std::string DecodedTemplate(std::string_view bytes);

}  // namespace recall
