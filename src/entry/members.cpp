#include "entry/members.h"

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <utility>

#include "entry/record_id.h"
#include "forms/text.h"

namespace entry {
namespace {

using forms::Form;

std::int32_t ToInt(const std::string& text) {
  return session::ToId(session::Value(text));
}

// Arguments as the methods take them; one that was left out is empty, 0 or False.
class Reader {
 public:
  explicit Reader(Arguments& arguments) : arguments_(arguments) {}

  std::string& Text(const char* name) { return arguments_[name]; }
  std::int32_t Int(const char* name) { return ToInt(arguments_[name]); }
  bool Bool(const char* name) { return forms::IsOn(arguments_[name]); }

  void Return(const char* name, bool value) { arguments_[name] = TextOf(value); }

 private:
  Arguments& arguments_;
};

constexpr std::array<std::string_view, 14> kListNames = {
    "lulProvider",   "lulPhysician1",   "lulPhysician2",  "lulReferInOut", "lulReferral",
    "lulFamilyHead", "lulEmployee",     "lulInsuranceCo", "lulEmployer",   "lulGroupPlan",
    "lulInsGroup",   "lulRecallMaster", "lulPharmacy",    "lulCapPlans"};

// A number, or the name of a list.
std::int32_t ToNumber(const std::string& text) {
  const auto name =
      std::ranges::find_if(kListNames, [&](std::string_view known) { return forms::EqualsIgnoringCase(known, text); });
  if (name != kListNames.end()) {
    return static_cast<std::int32_t>(name - kListNames.begin());
  }
  const std::int32_t number = ToInt(text);
  if (number == 0 && text != "0" && !text.empty()) {
    throw std::invalid_argument("\"" + text + "\" is no number");
  }
  return number;
}

Form::NamedProperty Property(std::int32_t& value) {
  return {[&value] { return std::to_string(value); }, [&value](const std::string& text) { value = ToNumber(text); }};
}

// Deletes nothing: an object of the host that is known by a name alone.
struct NameOnly {
  std::string name;
  void operator()(void* /*object*/) const {}
};

constexpr const char* kNothing = "Nothing";
constexpr const char* kSession = "Session";

bool IsNothing(std::string_view text) {
  return text.empty() || forms::EqualsIgnoringCase(text, kNothing);
}

std::string NameOf(const HostObject& object) {
  if (object == nullptr) {
    return kNothing;
  }
  const auto* named = std::get_deleter<NameOnly>(object);
  return named != nullptr ? named->name : "Object";
}

HostObject ObjectOf(const std::string& name) {
  static char object = 0;  // its name tells one from another
  return IsNothing(name) ? nullptr : HostObject(&object, NameOnly{name});
}

// By its name; "Nothing" is none.
Form::NamedProperty Property(HostObject& value) {
  return {[&value] { return NameOf(value); }, [&value](const std::string& text) { value = ObjectOf(text); }};
}

Form::NamedProperty Slot(IGlobal& object, const HostObject& (IGlobal::*get)() const, void (IGlobal::*set)(HostObject)) {
  return {[&object, get] { return NameOf((object.*get)()); },
          [&object, set](const std::string& text) { (object.*set)(ObjectOf(text)); }};
}

Form::NamedProperty SessionSlot(IGlobal& object, const std::shared_ptr<session::Session>& session) {
  return {[&object] { return std::string(object.PV() == nullptr ? kNothing : kSession); },
          [&object, session](const std::string& text) {
            if (!IsNothing(text) && !forms::EqualsIgnoringCase(text, kSession)) {
              throw std::invalid_argument("\"" + text + "\" is neither Session nor Nothing");
            }
            object.SetPV(IsNothing(text) ? nullptr : session);
          }};
}

Form::NamedProperty Property(bool& value) {
  return {[&value] { return TextOf(value); }, [&value](const std::string& text) { value = forms::IsOn(text); }};
}

Form::NamedProperty Property(std::string& value) {
  return {[&value] { return value; }, [&value](const std::string& text) { value = text; }};
}

Parameter In(std::string name) {
  return {std::move(name), false};
}

Parameter ByRef(std::string name) {
  return {std::move(name), true};
}

// The methods that both classes have.
template <typename Class>
void AddPrinterMethods(std::vector<Method>& methods) {
  methods.push_back({"SetPrinter", {In("PN"), In("DM"), In("DN")}, [](Arguments& arguments) {
                       Reader reader(arguments);
                       Class::SetPrinter({reader.Text("PN"), reader.Text("DM"), reader.Text("DN")});
                       return std::string();
                     }});
  methods.push_back({"GetPrinter", {ByRef("PN"), ByRef("DM"), ByRef("DN")}, [](Arguments& arguments) {
                       const Printer& printer = Class::GetPrinter();
                       arguments["PN"] = printer.name;
                       arguments["DM"] = printer.device_mode;
                       arguments["DN"] = printer.device_names;
                       return std::string();
                     }});
}

std::string AdjustPlan(EditingScreen& screen, Arguments& arguments) {
  session::PlanAdjustment plan;
  VisitArguments([&](const char* name, auto& value) { session::ReadText(arguments[name], value); }, plan);
  const bool accepted = screen.Edit_AdjustPlan_Info(plan);
  VisitArguments([&](const char* name, const auto& value) { arguments[name] = TextOf(value); }, plan);
  return TextOf(accepted);
}

std::vector<Parameter> PlanParameters() {
  std::vector<Parameter> parameters;
  const session::PlanAdjustment any;
  VisitArguments([&](const char* name, const auto& /*value*/) { parameters.push_back(ByRef(name)); }, any);
  return parameters;
}

std::vector<Method> PlanMethods(EditingScreen& screen) {
  return {{"Edit_AdjustPlan_Info", PlanParameters(),
           [&screen](Arguments& arguments) { return AdjustPlan(screen, arguments); }},
          {"Edit_PPO_Adjustment", {}, [&screen](Arguments&) { return TextOf(screen.Edit_PPO_Adjustment()); }},
          {"Select_Coverage",
           {In("EmployerID"), In("MustSelect"), In("HideElID")},
           [&screen](Arguments& arguments) {
             Reader reader(arguments);
             return std::to_string(
                 screen.Select_Coverage(reader.Int("EmployerID"), reader.Bool("MustSelect"), reader.Int("HideElID")));
           }},
          {"Edit_Patient_Coverage", {In("PatientID")}, [&screen](Arguments& arguments) {
             return TextOf(screen.Edit_Patient_Coverage(Reader(arguments).Int("PatientID")));
           }}};
}

std::vector<Method> LocationMethods(EditingScreen& screen) {
  return {{"Location_Edit_Screen", {}, [&screen](Arguments&) { return TextOf(screen.Location_Edit_Screen()); }},
          {"PatientLocation_Setup",
           {In("PatientID")},
           [&screen](Arguments& arguments) {
             return TextOf(screen.PatientLocation_Setup(Reader(arguments).Int("PatientID")));
           }},
          {"LoginLocation_Setup", {In("PasswordID")}, [&screen](Arguments& arguments) {
             return TextOf(screen.LoginLocation_Setup(Reader(arguments).Int("PasswordID")));
           }}};
}

std::vector<Method> RecordMethods(EditingScreen& screen) {
  return {{"Show_InsPlan_Screen",
           {In("EmpID"), In("InsID"), In("GroID"), In("Title"), In("HelpID")},
           [&screen](Arguments& arguments) {
             Reader reader(arguments);
             screen.Show_InsPlan_Screen(reader.Int("EmpID"), reader.Int("InsID"), reader.Int("GroID"),
                                        reader.Text("Title"), reader.Int("HelpID"));
             return std::string();
           }},
          {"Employer_Start",
           {ByRef("Tmp"), ByRef("PatID"), ByRef("FormTag"), ByRef("SubscriberID"), ByRef("Subscriber_elID"),
            In("StartTab")},
           [&screen](Arguments& arguments) {
             Reader reader(arguments);
             screen.Employer_Start(reader.Text("Tmp"), reader.Text("PatID"), reader.Text("FormTag"),
                                   reader.Text("SubscriberID"), reader.Text("Subscriber_elID"),
                                   static_cast<session::EmployerStartTab>(reader.Int("StartTab")));
             return std::string();
           }},
          {"Grp_Plan_Start",
           {ByRef("GroPlaID"), In("InsCoID")},
           [&screen](Arguments& arguments) {
             Reader reader(arguments);
             screen.Grp_Plan_Start(reader.Text("GroPlaID"), reader.Int("InsCoID"));
             return std::string();
           }},
          {"Recall_Master_Start",
           {ByRef("TmpRecNum"), ByRef("RecallID"), ByRef("Canceled"), ByRef("DataSaved")},
           [&screen](Arguments& arguments) {
             Reader reader(arguments);
             bool canceled = reader.Bool("Canceled");
             bool data_saved = reader.Bool("DataSaved");
             screen.Recall_Master_Start(reader.Text("TmpRecNum"), reader.Text("RecallID"), canceled, data_saved);
             reader.Return("Canceled", canceled);
             reader.Return("DataSaved", data_saved);
             return std::string();
           }},
          {"Ins_Company_Start",
           {ByRef("Ins_Com_ID_Num")},
           [&screen](Arguments& arguments) {
             screen.Ins_Company_Start(Reader(arguments).Text("Ins_Com_ID_Num"));
             return std::string();
           }},
          {"Pharmacy_Start", {ByRef("sPhaID"), ByRef("PhaID")}, [&screen](Arguments& arguments) {
             Reader reader(arguments);
             screen.Pharmacy_Start(reader.Text("sPhaID"), reader.Text("PhaID"));
             return std::string();
           }}};
}

std::vector<Method> PersonMethods(EditingScreen& screen) {
  return {{"Load_PatInfo_Small",
           {ByRef("l_ID"), In("ns_ID"), ByRef("GoToQuickAppoint")},
           [&screen](Arguments& arguments) {
             Reader reader(arguments);
             bool save_and_book = reader.Bool("GoToQuickAppoint");
             screen.Load_PatInfo_Small(reader.Text("l_ID"), reader.Text("ns_ID"), save_and_book);
             reader.Return("GoToQuickAppoint", save_and_book);
             return std::string();
           }},
          {"PaTable_Edit_Start",
           {In("PersonType"), ByRef("SrchFld")},
           [&screen](Arguments& arguments) {
             Reader reader(arguments);
             screen.PaTable_Edit_Start(reader.Text("PersonType"), reader.Text("SrchFld"));
             return std::string();
           }},
          {"eReminder_PersonalSetup",
           {In("PatientID")},
           [&screen](Arguments& arguments) {
             return TextOf(screen.eReminder_PersonalSetup(Reader(arguments).Int("PatientID")));
           }},
          {"eReminder_TemplateSetup", {In("emsRecordType"), In("txtType")}, [&screen](Arguments& arguments) {
             Reader reader(arguments);
             return TextOf(screen.eReminder_TemplateSetup(reader.Int("emsRecordType"), reader.Int("txtType")));
           }}};
}

void Append(std::vector<Method>& methods, std::vector<Method> more) {
  methods.insert(methods.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

}  // namespace

Dispatch DispatchOf(EditingScreen& screen) {
  Dispatch dispatch{.class_name = "EditingScreen", .methods = {}, .properties = {}};
  Append(dispatch.methods, PlanMethods(screen));
  Append(dispatch.methods, LocationMethods(screen));
  AddPrinterMethods<EditingScreen>(dispatch.methods);
  Append(dispatch.methods, RecordMethods(screen));
  Append(dispatch.methods, PersonMethods(screen));
  dispatch.properties = {{"ExtraID", Property(screen.ExtraID)},
                         {"frmOwner", Property(screen.frmOwner)},
                         {"StartForm", Property(screen.StartForm)},
                         {"NewEmployeePasswordID", Property(screen.NewEmployeePasswordID)}};
  return dispatch;
}

Dispatch DispatchOf(LookUpList& list) {
  Dispatch dispatch{.class_name = "LookUpList", .methods = {}, .properties = {}};
  dispatch.methods.push_back({"ShowList", {In("InsLLCanMultiSel"), In("fOwner")}, [&list](Arguments& arguments) {
                                list.ShowList(Reader(arguments).Bool("InsLLCanMultiSel"));
                                return std::string();
                              }});
  AddPrinterMethods<LookUpList>(dispatch.methods);
  dispatch.properties = {{"ListType", Property(list.ListType)},
                         {"frmOwner", Property(list.frmOwner)},
                         {"StartForm", Property(list.StartForm)},
                         {"Select_String", Property(list.Select_String)},
                         {"SelectedIDs", Property(list.SelectedIDs)}};
  session::VisitOptions(list.Options,
                        [&](const char* name, auto& option) { dispatch.properties.emplace(name, Property(option)); });
  return dispatch;
}

void AddSlots(Dispatch& dispatch, IGlobal& object, const std::shared_ptr<session::Session>& session) {
  dispatch.properties.insert_or_assign("DAC", Slot(object, &IGlobal::DAC, &IGlobal::SetDAC));
  dispatch.properties.insert_or_assign("GIC", Slot(object, &IGlobal::GIC, &IGlobal::SetGIC));
  dispatch.properties.insert_or_assign("GC", Slot(object, &IGlobal::GC, &IGlobal::SetGC));
  dispatch.properties.insert_or_assign("PV", SessionSlot(object, session));
}

}  // namespace entry
