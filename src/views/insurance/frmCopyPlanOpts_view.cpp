#include "views/insurance/frmCopyPlanOpts_view.h"

#include <wx/sizer.h>

#include <functional>
#include <vector>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

using insurance::frmCopyPlanOpts;

constexpr int kTextWidth = 420;

wxSizer* PlansGroup(FormDialog& dialog, frmCopyPlanOpts& form) {
  FieldGroup group(&dialog, "Insurance Plans");
  const int width = dialog.FromDIP(kTextWidth);
  wxWindow* source = MakeLabel(group.Box(), form.lblSourceHeading);
  group.Row(source, {MakeWrapped(group.Box(), form.lblSource, width)}, MakeButton(group.Box(), form.cmdSource));
  wxWindow* target = MakeLabel(group.Box(), form.lblTargetHeader);
  group.Row(target, {MakeWrapped(group.Box(), form.lblTarget, width)}, MakeButton(group.Box(), form.cmdTarget));
  return group.Sizer();
}

wxPanel* MakeFrame(wxWindow* parent, forms::Panel& control,
                   const std::function<std::vector<wxWindow*>(wxWindow* on)>& parts) {
  wxPanel* frame = MakePanel(parent, control);
  auto* column = new wxBoxSizer(wxVERTICAL);
  for (wxWindow* part : parts(frame)) {
    column->Add(part, wxSizerFlags().Border(wxTOP, parent->FromDIP(4)));
  }
  frame->SetSizer(column);
  return frame;
}

// The options are made one behind the other: what stands between two of them would part their group.
wxSizer* CopyGroup(FormDialog& dialog, frmCopyPlanOpts& form) {
  auto* group = new wxStaticBoxSizer(wxVERTICAL, &dialog, "What Is Copied");
  wxWindow* box = group->GetStaticBox();
  box->SetName("group What Is Copied");
  const int width = dialog.FromDIP(kTextWidth);
  wxWindow* all = MakeOption(box, form.optCopyType[frmCopyPlanOpts::kAll], true);
  wxWindow* chosen = MakeOption(box, form.optCopyType[frmCopyPlanOpts::kChosen], false);
  wxWindow* overwrite = MakeFrame(box, form.fOverwrite, [&](wxWindow* on) {
    return std::vector<wxWindow*>{MakeWrapped(on, form.lblOverwrite1, width),
                                  MakeWrapped(on, form.lblOverwrite2, width)};
  });
  wxWindow* update = MakeFrame(box, form.fUpdate, [&](wxWindow* on) {
    std::vector<wxWindow*> parts = {MakeWrapped(on, form.lblUpdate1, width)};
    for (forms::CheckBox& info : form.chkInfo) {
      parts.push_back(MakeCheckBox(on, info));
    }
    parts.push_back(MakeWrapped(on, form.lblUpdate2, width));
    parts.push_back(MakeWrapped(on, form.lblUpdate3, width));
    return parts;
  });
  const auto option = wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, dialog.FromDIP(8));
  const auto below = wxSizerFlags().Expand().Border(wxLEFT, dialog.FromDIP(32));
  group->Add(all, option);
  group->Add(overwrite, below);
  group->Add(chosen, option);
  group->Add(update, below);
  group->AddSpacer(dialog.FromDIP(8));
  return group;
}

}  // namespace

void LayOut_frmCopyPlanOpts(FormDialog& dialog, frmCopyPlanOpts& form) {
  const auto gap = wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10));
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(PlansGroup(dialog, form), gap);
  page->Add(CopyGroup(dialog, form), wxSizerFlags(gap).Proportion(1));
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), gap);
  dialog.SetSizer(page);
}

}  // namespace views
