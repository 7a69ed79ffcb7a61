#include <string>

#include "forms/rich_text.h"
#include "forms/text.h"
#include "fuzz/fuzz.h"
#include "fuzz/safe_html.h"

// Any HTML is reduced to what the editors know, in one form, and no further the next time.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view html(reinterpret_cast<const char*>(data), size);
  const forms::RichText text = forms::ReadHtml(html);
  const std::string written = forms::WriteHtml(text);
  fuzz::Expect(fuzz::IsSafeHtml(written), "is not safe", written);
  fuzz::Expect(forms::WriteHtml(forms::ReadHtml(written)) == written, "is not written alike again", written);
  fuzz::Expect(forms::ToUtf8(forms::ToUtf32(written)) == written, "is no UTF-8", written);
  forms::PlainText(text);
  return 0;
}
