#include "desk/public_screens.h"

#include "forms/text.h"

namespace host {
namespace {

std::string FromBool(bool value) {
  return value ? "True" : "False";
}

}  // namespace

entry::Arguments PublicScreens::Call(std::string_view method, entry::Arguments arguments) const {
  editing_screen_.Find(method)->invoke(arguments);
  return arguments;
}

std::optional<session::ListChoice> PublicScreens::ShowList(session::LookUpListTypes type,
                                                           const session::ListRequest& request) {
  auto& properties = look_up_list_.properties;
  properties.at("ListType").set(std::to_string(type));
  properties.at("ListTitle").set(request.title);
  properties.at("SelectedID").set(std::to_string(request.selected));
  properties.at("Select_String").set({});
  properties.at("AllowDelete").set(FromBool(request.allow_delete));
  entry::Arguments arguments = {{"InsLLCanMultiSel", FromBool(request.multi_select)}};
  look_up_list_.Find("ShowList")->invoke(arguments);
  const std::int32_t id = session::ToId(session::Value(properties.at("SelectedID").get()));
  std::string text = properties.at("Select_String").get();
  if (id == 0 || (id == request.selected && text.empty())) {
    return std::nullopt;
  }
  return session::ListChoice{id, std::move(text)};
}

std::optional<session::PickedText> PublicScreens::ShowPickList(session::PickList /*list*/, std::string_view /*title*/) {
  return std::nullopt;
}

void PublicScreens::Load_PatInfo_Small(std::string& id, const std::string& typed_name, bool& save_and_book) {
  const entry::Arguments told =
      Call("Load_PatInfo_Small", {{"l_ID", id}, {"ns_ID", typed_name}, {"GoToQuickAppoint", FromBool(save_and_book)}});
  id = told.at("l_ID");
  save_and_book = forms::IsOn(told.at("GoToQuickAppoint"));
}

void PublicScreens::PaTable_Edit_Start(std::string_view person_type, std::string& id) {
  id = Call("PaTable_Edit_Start", {{"PersonType", std::string(person_type)}, {"SrchFld", id}}).at("SrchFld");
}

void PublicScreens::Grp_Plan_Start(std::string& plan_id, std::int32_t carrier_id) {
  plan_id = Call("Grp_Plan_Start", {{"GroPlaID", plan_id}, {"InsCoID", std::to_string(carrier_id)}}).at("GroPlaID");
}

void PublicScreens::Recall_Master_Start(std::string& recall_id, bool& canceled, bool& data_saved) {
  const entry::Arguments told =
      Call("Recall_Master_Start",
           {{"RecallID", recall_id}, {"Canceled", FromBool(canceled)}, {"DataSaved", FromBool(data_saved)}});
  recall_id = told.at("RecallID");
  canceled = forms::IsOn(told.at("Canceled"));
  data_saved = forms::IsOn(told.at("DataSaved"));
}

void PublicScreens::Ins_Company_Start(std::string& carrier_id) {
  carrier_id = Call("Ins_Company_Start", {{"Ins_Com_ID_Num", carrier_id}}).at("Ins_Com_ID_Num");
}

void PublicScreens::Pharmacy_Start(std::string& pharmacy_id) {
  pharmacy_id = Call("Pharmacy_Start", {{"PhaID", pharmacy_id}}).at("PhaID");
}

}  // namespace host
