#include "forms/text.h"
#include "home/frmHome.h"

// What the home shows, in its order, and the rules of each control.
namespace host {

using forms::Key;
using session::Opening;

frmHome::frmHome(const session::ScreenContext& context, std::string practice)
    : Form("frmHome"), Rules(context), practice_(std::move(practice)) {
  Add("lblSearch", lblSearch);
  Add("txtSearch", txtSearch);
  Add("lblHint", lblHint);
  Add("pnlList", pnlList);
  Add("lblResults", lblResults);
  Add("grdPatients", grdPatients);
  Add("pnlFirst", pnlFirst);
  Add("lblFirst", lblFirst);
  Add("cmdFirst", cmdFirst);
  Add("pnlCard", pnlCard);
  Add("pnlAlert", pnlAlert);
  Add("lblAlert", lblAlert);
  const std::initializer_list<std::pair<const char*, forms::Label*>> lines = {
      {"lblName", &lblName},       {"lblFacts", &lblFacts},   {"lblPhones", &lblPhones},
      {"lblAddress", &lblAddress}, {"lblFamily", &lblFamily}, {"lblCoverage", &lblCoverage}};
  for (const auto& [name, label] : lines) {
    Add(name, *label);
    label->Container = &pnlCard;
  }
  Add("lblNoCard", lblNoCard);
  AddButtons();
  Add("lblStatus", lblStatus);
  Add("cmdStatus", cmdStatus);
  Add("lblWho", lblWho);

  lblSearch.Caption = "Fi&nd a patient";
  txtSearch.Heading = &lblSearch;
  txtSearch.Change = [this] { search_due_ = true; };
  txtSearch.KeyDown = [this](Key key) { return OnSearchKey(key); };
  lblHint.Caption = "Name, phone number, birth date or ID.  Enter opens, Ctrl+N adds.";
  grdPatients.Columns = std::vector<forms::GridColumn>{
      {.key = "Name", .caption = "Name", .width = 170},
      {.key = "pBIRDAT", .caption = "Birth date", .width = 84},
      {.key = "Age", .caption = "Age", .width = 44, .align = forms::GridColumn::Align::Center},
      {.key = "pHOMPHO", .caption = "Phone", .width = 110},
      {.key = "pCIT", .caption = "City", .width = 110},
      {.key = "Provider", .caption = "Provider", .width = 120},
      {.key = "pSSN", .caption = "SSN", .width = 92},
      {.key = std::string(kIdColumn), .caption = "ID", .visible = false}};
  lblResults.Container = &pnlList;
  grdPatients.Container = &pnlList;
  grdPatients.AccessibleName = "Patients";
  grdPatients.RowColChange = [this] { card_due_ = true; };
  grdPatients.DblClick = [this] { OpenSoon(); };
  grdPatients.KeyDown = [this](Key key) { return key == Key::Enter && OpenSoon(); };
  pnlFirst.Visible = false;
  lblFirst.Container = &pnlFirst;
  lblFirst.Caption = "This practice has no patients yet.";
  cmdFirst.Container = &pnlFirst;
  cmdFirst.Caption = "Add your &first patient";
  cmdFirst.Click = [this] { NewPatient(Opening::Mode::New); };
  pnlCard.Visible = false;
  pnlAlert.Container = &pnlCard;
  pnlAlert.BackColor = forms::Color{0xB3, 0x26, 0x1E};
  lblAlert.Container = &pnlAlert;
  lblAlert.ForeColor = forms::Color{0xFF, 0xFF, 0xFF};
  lblNoCard.Caption = "Choose a patient to see the card here.";
  cmdStatus.Visible = false;
  cmdStatus.Click = [this] { OpenPatient(told_); };
  lblWho.Caption = context_.session.UserName() + ", " + practice_ +
                   (statements_.OfficeScoped() ? ", office " + std::to_string(context_.session.CurrentOfficeID()) : "");
}

void frmHome::AddButtons() {
  std::string coming;
  for (const DeskCommand& command : DeskCommands()) {
    if (!command.on_card) {
      continue;
    }
    forms::Button& button = CardButtons.emplace_back(command).button;
    const std::string name = command.Name();
    Add("cmd" + name.substr(0, name.find(' ')), button);
    button.Container = &pnlCard;
    button.Caption = forms::WithoutMnemonic(command.caption);
    button.ToolTip = Obstacle(command);
    button.Enabled = button.ToolTip->empty();
    button.Click = [this, &command] { Do(command); };
    if (!command.IsBuilt()) {
      coming += (coming.empty() ? "Still to come: " : ", ") + forms::ToLower(name);
    }
  }
  Add("lblComing", lblComing);
  lblComing.Container = &pnlCard;
  lblComing.Caption = coming;
}

}  // namespace host
