#include "desk/public_screens.h"

#include "entry/record_id.h"
#include "forms/text.h"

namespace host {
namespace {

// "5,12".
std::vector<std::int32_t> IdsIn(std::string_view text) {
  std::vector<std::int32_t> ids;
  while (!text.empty()) {
    const std::size_t comma = text.find(',');
    ids.push_back(session::ToId(std::string(text.substr(0, comma))));
    text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
  }
  return ids;
}

}  // namespace

session::Outcome PublicScreens::Call(std::string_view method, const char* id_argument,
                                     entry::Arguments& arguments) const {
  editing_screen_.Find(method)->invoke(arguments);
  return entry::ReadOutcome(arguments.at(id_argument));
}

session::Outcome PublicScreens::Edit(const session::Opening& opening) {
  const std::string id = entry::IdText(opening);
  switch (opening.kind) {
    case session::RecordKind::Patient: {
      entry::Arguments arguments = {
          {"l_ID", id}, {"ns_ID", opening.typed_name}, {"GoToQuickAppoint", entry::TextOf(opening.may_book)}};
      session::Outcome outcome = Call("Load_PatInfo_Small", "l_ID", arguments);
      outcome.save_and_book = forms::IsOn(arguments.at("GoToQuickAppoint"));
      return outcome;
    }
    case session::RecordKind::Carrier: {
      entry::Arguments arguments = {{"Ins_Com_ID_Num", id}};
      return Call("Ins_Company_Start", "Ins_Com_ID_Num", arguments);
    }
    case session::RecordKind::Pharmacy: {
      entry::Arguments arguments = {{"PhaID", id}};
      return Call("Pharmacy_Start", "PhaID", arguments);
    }
    case session::RecordKind::GroupPlan: {
      entry::Arguments arguments = {{"GroPlaID", id}, {"InsCoID", std::to_string(opening.carrier)}};
      return Call("Grp_Plan_Start", "GroPlaID", arguments);
    }
    case session::RecordKind::RecallMaster: {
      entry::Arguments arguments = {{"RecallID", id}};
      const session::Outcome outcome = Call("Recall_Master_Start", "RecallID", arguments);
      return forms::IsOn(arguments.at("DataSaved")) ? outcome : session::Outcome();
    }
    default: {
      entry::Arguments arguments = {{"PersonType", std::string(entry::PersonKey(opening.kind))}, {"SrchFld", id}};
      editing_screen_.properties.at("NewEmployeePasswordID").set(std::to_string(opening.new_employee_login));
      return Call("PaTable_Edit_Start", "SrchFld", arguments);
    }
  }
}

void PublicScreens::ShowPlanDetails(const session::PlanDetailsRequest& request) {
  entry::Arguments arguments = {{"EmpID", std::to_string(request.employer)},
                                {"InsID", std::to_string(request.carrier)},
                                {"GroID", std::to_string(request.plan)},
                                {"Title", request.title},
                                {"HelpID", std::to_string(request.help)}};
  editing_screen_.Find("Show_InsPlan_Screen")->invoke(arguments);
}

session::ListOutcome PublicScreens::ShowList(session::LookUpListTypes type, const session::ListOptions& options) {
  auto& properties = look_up_list_.properties;
  properties.at("ListType").set(std::to_string(type));
  properties.at("Select_String").set({});
  session::VisitOptions(options,
                        [&](const char* name, const auto& option) { properties.at(name).set(entry::TextOf(option)); });
  entry::Arguments none;
  look_up_list_.Find("ShowList")->invoke(none);
  const std::int32_t id = session::ToId(session::Value(properties.at("SelectedID").get()));
  std::string text = properties.at("Select_String").get();
  if (options.skip_if_new && text == entry::kNew) {
    return {.end = session::ListOutcome::End::New};
  }
  if (id == 0 || (id == options.selected && text.empty())) {
    return {};
  }
  return {session::ListOutcome::End::Chosen, id, std::move(text), IdsIn(properties.at("SelectedIDs").get())};
}

std::int32_t PublicScreens::SelectCoverage(const session::CoverageChoice& choice) {
  entry::Arguments arguments = {{"EmployerID", std::to_string(choice.employer)},
                                {"MustSelect", entry::TextOf(choice.must_select)},
                                {"HideElID", std::to_string(choice.hidden)}};
  return session::ToId(session::Value(editing_screen_.Find("Select_Coverage")->invoke(arguments)));
}

std::optional<session::PickedText> PublicScreens::ShowPickList(session::PickList /*list*/, std::string_view /*title*/) {
  return std::nullopt;
}

bool PublicScreens::EditLoginLocations(std::int32_t login) {
  entry::Arguments arguments = {{"PasswordID", std::to_string(login)}};
  return forms::IsOn(editing_screen_.Find("LoginLocation_Setup")->invoke(arguments));
}

}  // namespace host
