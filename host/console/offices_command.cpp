#include "console/offices_command.h"

#include "console/copy_command.h"
#include "database/database.h"
#include "practice/demo.h"
#include "practice/offices.h"

namespace host {
namespace {

void PrintGroup(const OfficeGroup& group, std::ostream& output) {
  for (const GroupServer& server : group.Servers()) {
    output << "server " << server.name << "  " << server.url << "\n";
  }
  for (const GroupOffice& office : group.Offices()) {
    output << "office " << office.office << "  " << office.server << "\n";
  }
}

}  // namespace

bool IsWhole(const OfficesOrder& order) {
  const bool server = !order.server.name.empty();
  const bool new_server = server && !order.server.url.empty();
  if (order.what == "create") {
    return new_server && order.url.empty() && order.office == 0 && !order.demo && order.copy.empty();
  }
  const bool filled = order.demo || !order.copy.empty();
  if (order.url.empty() || order.row_guids || (order.demo && !order.copy.empty()) ||
      (filled && order.what != "add-office")) {
    return false;
  }
  if (order.what == "add-server") {
    return new_server && order.office == 0;
  }
  if (order.what == "add-office" || order.what == "move") {
    return server && !new_server && order.office > 0;
  }
  return (order.what == "list" || order.what == "migrate") && !server && order.office == 0;
}

bool RunOffices(const OfficesOrder& order, std::ostream& output) {
  if (order.what == "create") {
    CreateOfficeGroup(order.server, {.row_guids = order.row_guids});
  }
  const auto group = OpenOfficeGroup(order.what == "create" ? order.server.url : order.url);
  if (order.what == "add-server") {
    group->AddServer(order.server);
  } else if (!order.copy.empty()) {
    const auto copy = [&](const WhileCopying& told) {
      return AddCopiedOffice(*group, order.office, order.server.name, order.copy, told);
    };
    if (!TellOfCopy(copy, "Stopped; the group is as before.", output)) {
      return false;
    }
  } else if (order.what == "add-office") {
    AddOffice(*group, order.office, order.server.name, [&](Practice& practice) {
      if (order.demo) {
        FillDemo(practice, {.patients = *order.demo, .seed = static_cast<std::uint64_t>(order.office)});
      }
    });
  } else if (order.what == "move") {
    group->Move(order.office, order.server.name);
  } else if (order.what == "migrate") {
    group->Migrate();
  }
  PrintGroup(*group, output);
  return true;
}

}  // namespace host
