#include "views/view_registry.h"

#include "views/insurance/GrpPlaScreen_view.h"
#include "views/insurance/InsPln_Frm_view.h"
#include "views/insurance/frmCopyPlanOpts_view.h"
#include "views/insurance/frmEditCoverage_view.h"
#include "views/insurance/frmEmployer_view.h"
#include "views/insurance/frmPPOAdjust_view.h"
#include "views/insurance/frmSelectCoverage_view.h"
#include "views/insurance/insScreen_view.h"
#include "views/locations/frmOfficeLocation_view.h"
#include "views/locations/frmPatientLocation_view.h"
#include "views/lookup/frmExport_view.h"
#include "views/lookup/frmSearchWindow_view.h"
#include "views/lookup/frmTGList_view.h"
#include "views/people/EmployeeFrm_view.h"
#include "views/people/FamScreen_view.h"
#include "views/people/docScreen_view.h"
#include "views/people/frmContacts_view.h"
#include "views/people/frmCreditCard_view.h"
#include "views/people/frmDatabaseSearch_view.h"
#include "views/people/patScreen_SM_view.h"
#include "views/recall/RecallSetupScreen_view.h"
#include "views/recall/eRmdrPersonalSetup_view.h"
#include "views/recall/frmEDMsg_view.h"
#include "views/recall/frmEreminderContact_view.h"
#include "views/recall/frmQuickEditor_view.h"

namespace views {

ViewRegistry ViewRegistry::Standard() {
  ViewRegistry registry;
  registry.Add<insurance::InsPln_Frm>("InsPln_Frm", LayOut_InsPln_Frm);
  registry.Add<insurance::frmCopyPlanOpts>("frmCopyPlanOpts", LayOut_frmCopyPlanOpts);
  registry.Add<insurance::frmEditCoverage>("frmEditCoverage", LayOut_frmEditCoverage);
  registry.Add<insurance::frmEmployer>("frmEmployer", LayOut_frmEmployer);
  registry.Add<insurance::frmPPOAdjust>("frmPPOAdjust", LayOut_frmPPOAdjust);
  registry.Add<insurance::frmSelectCoverage>("frmSelectCoverage", LayOut_frmSelectCoverage);
  registry.Add<insurance::insScreen>("insScreen", LayOut_insScreen);
  registry.Add<insurance::GrpPlaScreen>("GrpPlaScreen", LayOut_GrpPlaScreen);
  registry.Add<people::docScreen>("docScreen", LayOut_docScreen);
  registry.Add<people::EmployeeFrm>("EmployeeFrm", LayOut_EmployeeFrm);
  registry.Add<locations::frmOfficeLocation>("frmOfficeLocation", LayOut_frmOfficeLocation);
  registry.Add<locations::frmPatientLocation>("frmPatientLocation", LayOut_frmPatientLocation);
  registry.Add<people::FamScreen>("FamScreen", LayOut_FamScreen);
  registry.Add<people::frmContacts>("frmContacts", LayOut_frmContacts);
  registry.Add<people::frmCreditCard>("frmCreditCard", LayOut_frmCreditCard);
  registry.Add<recall::frmEreminderContact>("frmEreminderContact", LayOut_frmEreminderContact);
  registry.Add<people::frmDatabaseSearch>("frmDatabaseSearch", LayOut_frmDatabaseSearch);
  registry.Add<people::patScreen_SM>("patScreen_SM", LayOut_patScreen_SM);
  registry.Add<recall::eRmdrPersonalSetup>("eRmdrPersonalSetup", LayOut_eRmdrPersonalSetup);
  registry.Add<recall::frmEDMsg>("frmEDMsg", LayOut_frmEDMsg);
  registry.Add<recall::RecallSetupScreen>("RecallSetupScreen", LayOut_RecallSetupScreen);
  registry.Add<recall::frmQuickEditor>("frmQuickEditor", LayOut_frmQuickEditor);
  registry.Add<lookup::frmSearchWindow>("frmSearchWindow", LayOut_frmSearchWindow);
  registry.Add<lookup::frmTGList>("frmTGList", LayOut_frmTGList);
  registry.Add<lookup::frmExport>("frmExport", LayOut_frmExport);
  return registry;
}

bool ViewRegistry::LayOut(FormDialog& dialog) const {
  const auto view = views_.find(dialog.Form().Name());
  if (view == views_.end()) {
    return false;
  }
  view->second(dialog);
  dialog.FinishLayout();
  return true;
}

std::vector<std::string> ViewRegistry::Names() const {
  std::vector<std::string> names;
  for (const auto& [name, view] : views_) {
    names.push_back(name);
  }
  return names;
}

}  // namespace views
