#include "views/insurance/InsPln_Frm_view.h"

#include "views/insurance/ucPlanDetails_view.h"

namespace views {

void LayOut_InsPln_Frm(FormDialog& dialog, insurance::InsPln_Frm& form) {
  dialog.SetSizer(LayOut(dialog, &dialog, form.ucPlanDetails1));
}

}  // namespace views
