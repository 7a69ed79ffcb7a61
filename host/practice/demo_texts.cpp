#include "practice/demo_texts.h"

#include <cstddef>

namespace host::demo {
namespace {

constexpr std::array<RecallText, kTones.size()> kTexts = {{
    {"Recall\\Due.RTF",
     "It is time for your {Recall Title}. We recommend a visit around {Preferred Recall Date}. Please call us at "
     "{Office Phone}, and we will find a day that suits you.",
     "It is time for your {Recall Title}. Please call us at {Office Phone} to choose a day.",
     "Es tiempo para su {Recall Title}. Por favor llame al {Office Phone} para fijar su cita."},
    {"Recall\\Missed.RTF",
     "We missed you: your {Recall Title} was due on {Recall Due Date}. A short visit now saves a long one later. "
     "Please call us at {Office Phone}.",
     "We missed you: your {Recall Title} was due on {Recall Due Date}. Please call us at {Office Phone}.",
     "Su {Recall Title} era para el {Recall Due Date}. Por favor llame al {Office Phone}."},
    {"Recall\\Overdue.RTF",
     "Your {Recall Title} is overdue. Your last one was on {Last Recall Date}, and we recommend one every {Recall "
     "Period}. Early in the morning and late in the afternoon there are places at short notice.",
     "Your {Recall Title} is overdue since {Recall Due Date}. Call {Office Phone}, and we will find a day.",
     "Su {Recall Title} est\u00e1 atrasada desde el {Recall Due Date}. Llame al {Office Phone}."},
    {"Recall\\Come back.RTF",
     "We have not seen you since {Last Recall Date}. If you are treated elsewhere, please let us know, so that we can "
     "send your records there. If not, we would be glad to see you again.",
     "We have not seen you since {Last Recall Date}. One call is all it takes to come back: {Office Phone}.",
     "No le hemos visto desde el {Last Recall Date}. Una llamada es suficiente: {Office Phone}."},
    {"Recall\\Last.RTF",
     "This is our last reminder of your {Recall Title}. You stay welcome in our practice: a call to {Office Phone} is "
     "enough.",
     "This is our last reminder of your {Recall Title}. You stay welcome: {Office Phone}.",
     "Este es nuestro \u00faltimo recordatorio de su {Recall Title}. Siempre es bienvenido: {Office Phone}."},
}};

}  // namespace

const RecallText& TextOf(Tone tone) {
  return kTexts.at(static_cast<std::size_t>(tone));
}

}  // namespace host::demo
