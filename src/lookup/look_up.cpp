#include "lookup/look_up.h"

#include <algorithm>
#include <utility>

#include "data/persons.h"
#include "data/plan_details.h"
#include "data/statements.h"
#include "editing/rules.h"
#include "lookup/frmTGList.h"
#include "lookup/list_catalogue.h"
#include "lookup/shared_lists.h"

namespace lookup {
namespace {

using session::ScreenContext;

void SetList(frmTGList& window, const ListDefinition& list, const std::string& title) {
  window.Options.title = title.empty() ? list.title : title;
  window.Caption = title.empty() && !list.caption.empty() ? list.caption : window.Options.title;
  window.ListName = list.ListName();
  window.IDFld.Caption = list.IdColumn();
  window.NamFld.Caption = list.NameColumn();
  window.SetSQL(list.sql);
  window.SortBy = list.sort;
  window.LayoutKey = list.layout_key;
}

}  // namespace

session::ListOutcome ShowLookUpList(const ScreenContext& context, session::LookUpListTypes type,
                                    const session::ListOptions& options, const ListEvents& events) {
  const ListDefinition list = DefinitionOf(type, data::Statements(context.session), options);
  frmTGList window(context);
  window.Options = options;
  window.Options.show_patient_buttons = options.show_patient_buttons && list.commands.leads_to_patients;
  window.Options.skip_if_new = options.skip_if_new && type == session::lulEmployee;
  SetList(window, list, options.title);
  window.Events = events;
  window.Commands = list.commands;
  if (list.at_location != nullptr) {
    window.AtLocation = [&](std::int32_t location) {
      return list.at_location(data::Statements(context.session), location);
    };
  }
  if (list.commands.edits) {
    window.Edits = session::Opening{.kind = *list.commands.edits,
                                    .carrier = options.group_plan_company,
                                    .new_employee_login = options.new_employee_login};
  }
  window.AllowEdit = list.commands.edits.has_value();
  if (!list.kind_key.empty()) {
    context.session.SetCurrentPersonType(list.kind_key);
  }
  session::ListOutcome outcome = window.ShowList();
  if (outcome.id == 0) {
    return {.end = outcome.Chosen() ? session::ListOutcome::End::Cancelled : outcome.end};
  }
  // The statement has no name for a person without a first or last one.
  if (!list.kind_key.empty()) {
    outcome.text = data::LastFirst(window.Chosen("Last Name"), window.Chosen("First Name"));
  }
  if (!list.hand_off_table.empty()) {
    editing::Rules(context).Attempt(
        [&] { context.session.RecordHandOff(list.hand_off_column, list.hand_off_table, outcome.id); });
  }
  return outcome;
}

session::ListOutcome ShowPayerList(const ScreenContext& context, const session::ListOptions& options) {
  frmTGList window(context);
  window.Options.selected = options.selected;
  SetList(window, PayerList(data::Statements(context.session)), options.title);
  window.AllowEdit = false;
  return window.ShowList();
}

std::vector<std::string> ChooseServiceCodes(const ScreenContext& context) {
  const std::string login = context.session.UserName();
  frmTGList window(context);
  window.Options.multi_select = true;
  SetList(window, ServiceCodeList(data::Statements(context.session), login), {});
  window.AllowEdit = false;
  const session::ListOutcome outcome = window.ShowList();
  std::vector<std::string> chosen;
  if (!outcome.Chosen()) {
    return chosen;
  }
  const std::vector<data::ServiceCode> codes = data::ServiceCodesOf(context.session, login);
  for (const std::int32_t id : outcome.ids) {
    const auto code = std::ranges::find(codes, id, &data::ServiceCode::id);
    if (code != codes.end()) {
      chosen.push_back(code->code);
    }
  }
  return chosen;
}

std::optional<session::PickedText> ShowPickList(const ScreenContext& context, session::PickList list,
                                                std::string_view title) {
  frmTGList window(context);
  SetList(window, DefinitionOf(list, data::Statements(context.session)), std::string(title));
  window.AllowEdit = false;
  if (!window.ShowList().Chosen()) {
    return std::nullopt;
  }
  return session::PickedText{window.Chosen(kPickCode), window.Chosen(kPickDescription)};
}

}  // namespace lookup
