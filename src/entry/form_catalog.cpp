#include "entry/form_catalog.h"

#include <array>

#include "entry/component_screens.h"
#include "forms/text.h"
#include "lookup/frmTGList.h"
#include "people/frmContacts.h"
#include "people/frmDatabaseSearch.h"
#include "people/patScreen_SM.h"

namespace entry {
namespace {

using Maker = std::unique_ptr<forms::Form> (*)(const session::ScreenContext&);

struct Entry {
  std::string_view name;
  Maker make;
};

template <typename T>
std::unique_ptr<forms::Form> Make(const session::ScreenContext& context) {
  return std::make_unique<T>(context);
}

constexpr std::array kForms = {
    Entry{"patScreen_SM", Make<people::patScreen_SM>},
    Entry{"frmContacts", Make<people::frmContacts>},
    Entry{"frmDatabaseSearch", Make<people::frmDatabaseSearch>},
    Entry{"frmTGList", Make<lookup::frmTGList>},
};

}  // namespace

std::vector<std::string> FormNames() {
  std::vector<std::string> names;
  names.reserve(kForms.size());
  for (const Entry& entry : kForms) {
    names.emplace_back(entry.name);
  }
  return names;
}

std::unique_ptr<forms::Form> MakeForm(std::string_view name, const session::ScreenContext& context) {
  for (const Entry& entry : kForms) {
    if (forms::EqualsIgnoringCase(entry.name, name)) {
      return entry.make(context);
    }
  }
  return nullptr;
}

std::unique_ptr<session::Screens> MakeScreens(session::Session& session, forms::User& user) {
  return std::make_unique<ComponentScreens>(session, user);
}

}  // namespace entry
