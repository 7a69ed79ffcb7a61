#include "lookup/look_up.h"

#include <functional>

#include "data/statements.h"
#include "editing/attempt.h"
#include "forms/text.h"
#include "lookup/frmTGList.h"

namespace lookup {
namespace {

using session::ScreenContext;

// What an editing screen left in the ID's place: a saved record's ID, or a word.
std::string SavedId(const std::string& id) {
  return session::ToId(id) == 0 ? "" : id;
}

// Opens the editing screen of the kind; empty for a kind that has none.
std::function<std::string(const std::string&)> EditorOf(const ScreenContext& context, session::LookUpListTypes type,
                                                        const ListDefinition& list, std::int32_t carrier_id) {
  if (!list.kind_key.empty()) {
    return [context, key = forms::ToUpper(list.kind_key)](std::string id) {
      context.screens.PaTable_Edit_Start(key, id);
      return SavedId(id);
    };
  }
  switch (type) {
    case session::lulInsuranceCo:
      return [context](std::string id) {
        context.screens.Ins_Company_Start(id);
        return SavedId(id);
      };
    case session::lulGroupPlan:
      return [context, carrier_id](std::string id) {
        context.screens.Grp_Plan_Start(id, carrier_id);
        return SavedId(id);
      };
    case session::lulRecallMaster:
      return [context](std::string id) {
        bool canceled = false;
        bool data_saved = false;
        context.screens.Recall_Master_Start(id, canceled, data_saved);
        return canceled || !data_saved ? "" : SavedId(id);
      };
    case session::lulPharmacy:
      return [context](std::string id) {
        context.screens.Pharmacy_Start(id);
        return SavedId(id);
      };
    default:
      return {};
  }
}

void SetList(frmTGList& window, const ListDefinition& list, const std::string& title) {
  window.Title = title.empty() ? list.title : title;
  window.Caption = title.empty() && !list.caption.empty() ? list.caption : window.Title;
  window.ListName = list.ListName();
  window.IDFld.Caption = list.IdColumn();
  window.NamFld.Caption = list.NameColumn();
  window.SetSQL(list.sql);
  window.SortBy = list.sort;
  window.LayoutKey = list.layout_key;
}

// A person without a first name is known by the last name alone.
std::string WithoutOpenComma(std::string name) {
  if (name.ends_with(", ")) {
    name.resize(name.size() - 2);
  }
  return name;
}

}  // namespace

LookUpResult ShowLookUpList(const ScreenContext& context, std::int32_t type, const LookUpOptions& options) {
  if (type < 0 || type >= kListKinds) {
    return {};
  }
  const auto kind = static_cast<session::LookUpListTypes>(type);
  const ListDefinition list = DefinitionOf(kind, data::Statements(context.session), options.narrowing);
  frmTGList window(context);
  SetList(window, list, options.title);
  window.StartingID = options.selected;
  window.ShowMode = options.show_mode;
  window.MultiSelect = options.multi_select;
  window.No_Double_Click = options.no_double_click;
  window.ShowFacilityOptions = options.show_facility_options;
  window.ShowPatientButtons = options.show_patient_buttons && !list.kind_key.empty();
  window.Events = options.events;
  window.AllowDelete = list.HasCommand("Delete");
  window.EditRecord = EditorOf(context, kind, list, options.narrowing.group_plan_company);
  window.AllowEdit = window.EditRecord != nullptr;
  if (kind == session::lulEmployee && options.skip_list_if_new) {
    window.Request.insert(0, session::kSkipListIfNew);
  }
  if (!list.kind_key.empty()) {
    context.session.SetCurrentPersonType(list.kind_key);
  }
  LookUpResult result{window.ShowList(), std::nullopt};
  if (const std::int32_t id = session::ToId(result.answer); id != 0) {
    result.choice = {id, list.kind_key.empty() ? window.Select_String : WithoutOpenComma(window.Select_String)};
    if (!list.hand_off_table.empty()) {
      editing::Attempt(context.user,
                       [&] { context.session.RecordHandOff(list.hand_off_column, list.hand_off_table, id); });
    }
  }
  return result;
}

std::optional<session::PickedText> ShowPickList(const ScreenContext& context, session::PickList list,
                                                std::string_view title) {
  frmTGList window(context);
  SetList(window, DefinitionOf(list, data::Statements(context.session)), std::string(title));
  window.AllowEdit = false;
  if (window.ShowList() == session::kCancelAndClose) {
    return std::nullopt;
  }
  return session::PickedText{window.Chosen(kPickCode), window.Chosen(kPickDescription)};
}

}  // namespace lookup
