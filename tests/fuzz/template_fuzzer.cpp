#include <string>

#include "forms/rich_text.h"
#include "forms/text.h"
#include "fuzz/fuzz.h"
#include "fuzz/safe_html.h"
#include "recall/template_merge.h"
#include "recall/template_text.h"
#include "recall/template_variables.h"
#include "recall/text_message_length.h"

namespace {

void CheckVariables(const std::string& text) {
  const std::string renamed = recall::WithCurrentVariables(text);
  fuzz::Expect(recall::WithCurrentVariables(renamed) == renamed, "is renamed again", renamed);
  for (const recall::TextRange& range : recall::UnknownVariables(renamed)) {
    const std::string unknown = renamed.substr(range.begin, range.size);
    fuzz::Expect(unknown.starts_with('{') && unknown.ends_with('}') && !recall::IsTemplateVariable(unknown),
                 "is no unknown variable", unknown);
  }
  const recall::TemplateValues hostile = {{"{Office Name}", "\"><script>'{Patient Title}\r\n"}, {"{Office Fax}", text}};
  const std::string merged = recall::Merged(renamed, hostile, false);
  for (const recall::TemplateVariable& variable : recall::TemplateVariables()) {
    fuzz::Expect(merged.find(variable.text) == std::string::npos, "is still there", variable.text);
  }
  const std::string html = recall::WithWholeVariables(renamed);
  fuzz::Expect(recall::WithWholeVariables(html) == html, "is not whole", html);
  const std::string merged_html = forms::WriteHtml(forms::ReadHtml(recall::Merged(html, hostile, true)));
  fuzz::Expect(fuzz::IsSafeHtml(merged_html), "is not safe", merged_html);
}

void CheckLength(const std::string& text) {
  const recall::TextMessageLength length = recall::LengthOfTextMessage(text);
  const std::size_t room = length.messages > 1 ? (length.unicode ? 67 : 153) : (length.unicode ? 70 : 160);
  const std::size_t messages = std::max<std::size_t>(length.messages, 1);
  // A character of two is not cut: up to one is lost in each message but the last.
  const std::size_t most = room * messages - length.left;
  fuzz::Expect(length.count <= most && length.count + messages > most, "is measured wrongly", text);
}

}  // namespace

// The bytes of a template file, or of a list of templates.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = recall::DecodedTemplate({reinterpret_cast<const char*>(data), size});
  fuzz::Expect(forms::ToUtf8(forms::ToUtf32(text)) == text, "is no UTF-8", text);
  for (const recall::PredefinedTemplate& listed : recall::ReadTemplateList(text)) {
    fuzz::Expect(!listed.file.empty(), "has no file", listed.name);
    const auto marked = recall::MarkedTemplate(recall::TemplateMarker(listed.name));
    fuzz::Expect(marked == listed.name, "is marked otherwise", listed.name);
  }
  if (const auto name = recall::ReferencedTemplate(text)) {
    fuzz::Expect(recall::ReferencedTemplate(recall::TemplateReference(*name)) == name, "is named otherwise", *name);
  }
  CheckVariables(text);
  CheckLength(text);
  return 0;
}
