#include "unix/browser_page.h"

namespace host {
namespace {

std::string Page(std::string_view title, std::string_view head, std::string_view body) {
  std::string page =
      "<!DOCTYPE html>\n"
      "<html lang=\"en\">\n"
      "<head>\n"
      "<meta charset=\"utf-8\">\n"
      "<title>";
  page += title;
  page +=
      "</title>\n"
      "<link rel=\"icon\" href=\"data:,\">\n"
      "<style>body { overflow: hidden; } p { font: large sans-serif; margin: 2em; }</style>\n";
  page += head;
  page += "</head>\n<body>";
  page += body;
  page += "</body>\n</html>\n";
  return page;
}

}  // namespace

// Broadway's own script draws into the body and answers to keys and the mouse.
std::string PageOfWindows(std::string_view title) {
  return Page(title,
              "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
              "<script src=\"broadway.js\"></script>\n"
              "<script src=\"page.js\"></script>\n",
              "<p id=\"elsewhere\" hidden>" + std::string(kOpenElsewhere) +
                  "</p><p id=\"ended\" hidden>The practice desk has ended, or the way to it is lost.</p>");
}

std::string PageOfSentence(std::string_view title, std::string_view sentence) {
  return Page(title, "", "<p>" + std::string(sentence) + "</p>");
}

const std::string_view kPageScript =
    "function tell(sentence) {\n"
    "  sentence.hidden = false;\n"
    "  document.body.replaceChildren(sentence);\n"
    "}\n"
    "\n"
    "addEventListener('load', () => {\n"
    "  let joined = false;\n"
    "  connect();\n"
    "  ws.addEventListener('open', () => { joined = true; });\n"
    "  ws.onclose = () => {\n"
    "    inputSocket = null;\n"
    "    tell(document.getElementById(joined ? 'ended' : 'elsewhere'));\n"
    "  };\n"
    "});\n";

}  // namespace host
