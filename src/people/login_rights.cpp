#include "people/login_rights.h"

#include <algorithm>
#include <array>

#include "data/literal.h"
#include "forms/text.h"

namespace people {
namespace {

using data::Literal;
using session::Product;

enum Cell : std::size_t { kRight, kProduct, kView, kAdd, kModify, kDelete, kAuthorise };

// The flag of a cell; one stands for adding and modifying.
constexpr std::array<std::size_t, 7> kFlagOfCell = {0, 0, 0, 1, 1, 2, 3};

constexpr std::string_view kOptions = "SESC_EMP";
constexpr std::string_view kDontAsk = "DONTASK";
constexpr std::string_view kAssignment = "Rights Assignment";

std::string NameOf(Product product) {
  return product == Product::TimeClock ? "ZEP" : "TAVO";
}

std::string OptionOf(Product product) {
  return "APPLY_" + NameOf(product) + "_RIGHTS";
}

}  // namespace

// The catalogue as the grid shows it, with what is granted at the chosen locations.
class LoginRights::Rows : public forms::GridRows {
 public:
  explicit Rows(const LoginRights& rights) : rights_(rights) {}

  int Count() const override { return static_cast<int>(rights_.catalogue_.size()); }
  std::string_view Text(int row, int cell) const override {
    const auto right = static_cast<std::size_t>(row);
    const session::Right& entry = rights_.catalogue_[right];
    if (cell == kRight) {
      return entry.label;
    }
    if (cell == kProduct) {
      return entry.product == Product::TimeClock ? "ZEP" : "TAVO";
    }
    return rights_.ShownOf(right)[kFlagOfCell.at(static_cast<std::size_t>(cell))] ? "1" : "0";
  }

 private:
  const LoginRights& rights_;
};

LoginRights::LoginRights(const session::ScreenContext& context, const EmployeeLocations& locations)
    : Rules(context), locations_(locations), layout_(context.session, FGrd), rows_(std::make_shared<Rows>(*this)) {
  Add("chkSameRights", chkSameRights);
  Add("cmdLocation", cmdLocation);
  Add("FGrd", FGrd);
  chkSameRights.Caption = "Sa&me rights at all locations";
  cmdLocation.Caption = "Office Location &Setup...";
  FGrd.AccessibleName = "Rights";
  FGrd.EmptyText = "The office has no rights to give.";
  AddColumns();
  chkSameRights.Click = [this] { MakeSame(); };
  cmdLocation.Click = [this] { EditLocations(); };
  FGrd.CellEdited = [this](int column, const std::string& text) {
    bool edited = false;
    return Attempt([&] { edited = Edit(static_cast<std::size_t>(FGrd.CellOf(column)), text == "1"); }) && edited;
  };
}

void LoginRights::AddColumns() {
  using enum forms::GridColumn::Kind;
  std::vector<forms::GridColumn> columns = {{.key = "Right", .caption = "Right", .width = 290},
                                            {.key = "Product", .caption = "Product", .width = 70}};
  for (const char* caption : {"View", "Add", "Modify", "Delete", "Authorise"}) {
    columns.push_back({.key = caption,
                       .caption = caption,
                       .width = 75,
                       .kind = Check,
                       .align = forms::GridColumn::Align::Center,
                       .editable = true});
  }
  FGrd.Columns = std::move(columns);
}

void LoginRights::Read(const Login& login) {
  login_ = login;
  grants_.clear();
  edited_.clear();
  catalogue_ = context_.session.RightsCatalogue();
  supervisor_ = static_cast<std::size_t>(std::ranges::find_if(catalogue_,
                                                              [](const session::Right& right) {
                                                                return forms::EqualsIgnoringCase(
                                                                    right.keyword, session::kSupervisorRight);
                                                              }) -
                                         catalogue_.begin());
  FGrd.Rows = rows_;
  layout_.Restore("EmployeeFrm_Rights");
  const bool read_only = editing::EditingForm::ReadOnly(*this);
  chkSameRights.Enabled = !read_only;
  auto columns = FGrd.Columns.get();
  for (forms::GridColumn& column : columns) {
    column.editable = column.editable && !read_only;
  }
  FGrd.Columns = std::move(columns);
  Show();
}

void LoginRights::Show() {
  for (const std::int32_t location : locations_.Chosen()) {
    At(location);
  }
  FGrd.Refresh();
}

LoginRights::Grants& LoginRights::At(std::int32_t location) {
  const auto known = grants_.find(location);
  if (known != grants_.end()) {
    return known->second;
  }
  Grants grants(catalogue_.size());
  if (login_.id != 0) {
    std::map<std::string, std::size_t> places;
    for (std::size_t right = 0; right < catalogue_.size(); ++right) {
      places.emplace(forms::ToUpper(catalogue_[right].keyword), right);
    }
    const auto rows = statements_.Select("SELECT * FROM PWATable WHERE ((OffLocID) = " + Literal(location) +
                                         ") AND PWAUseNam=" + Literal(login_.name) + statements_.Office());
    for (; !rows->Eof(); rows->MoveNext()) {
      const auto place = places.find(forms::ToUpper(session::ToText((*rows)["PWAAreOfPro"])));
      const std::int32_t whose = session::ToId((*rows)["PWAPWMID"]);
      if (place == places.end() || (whose != 0 && whose != login_.id)) {  // a namesake's
        continue;
      }
      Grant& grant = grants[place->second];
      grant.has_row = true;
      std::size_t flag = 0;
      for (const char* column : {"PWAReaFla", "PWAWriFla", "PWAFla1", "PWAFla2"}) {
        grant.stored[flag] = grant.stored[flag] || session::ToId((*rows)[column]) != 0;
        ++flag;
      }
      grant.now = grant.stored;
    }
  }
  return grants_.emplace(location, std::move(grants)).first->second;
}

// The suite goes by the flag that lets modify.
bool LoginRights::IsSupervisor(const Grants& grants) const {
  return supervisor_ < grants.size() && grants[supervisor_].now[kFlagOfCell[kModify]];
}

LoginRights::Access LoginRights::ShownOf(std::size_t right) const {
  Access shown;
  shown.set();
  for (const std::int32_t location : locations_.Chosen()) {
    const auto at = grants_.find(location);
    if (at == grants_.end()) {
      return {};
    }
    if (!IsSupervisor(at->second)) {
      shown &= at->second[right].now;
    }
  }
  return shown;
}

// Supervisor rights go as a whole, and all others with them.
bool LoginRights::Edit(std::size_t column, bool on) {
  if (!MayModify()) {
    return false;
  }
  const auto right = static_cast<std::size_t>(FGrd.Row.get());
  const bool supervisor = right == supervisor_;
  const auto chosen = locations_.Chosen();
  if (!supervisor && std::ranges::any_of(chosen, [this](std::int32_t at) { return IsSupervisor(At(at)); })) {
    Tell("\"Supervisor Rights\" include every right. Take them away before you choose rights one by one.");
    return false;
  }
  std::set<std::int32_t> where(chosen.begin(), chosen.end());
  if (chkSameRights.Value == forms::CheckState::On) {
    where.insert(locations_.All().begin(), locations_.All().end());
  }
  for (const std::int32_t location : where) {
    Access access = At(location)[right].now;
    access[kFlagOfCell.at(column)] = on;
    Put(location, right, supervisor ? Access(on ? 0b1111 : 0) : access);
  }
  FGrd.Refresh();
  return true;
}

void LoginRights::Put(std::int32_t location, std::size_t right, Access access) {
  At(location)[right].now = access;
  edited_[catalogue_[right].product].insert(location);
}

void LoginRights::MakeSame() {
  if (chkSameRights.Value != forms::CheckState::On) {
    return;
  }
  if (!MayMakeSame()) {
    chkSameRights.Value = forms::CheckState::Off;
    return;
  }
  for (const Product product : Products()) {
    CopyToOthers(locations_.Shown(), product);
  }
  FGrd.Refresh();
}

bool LoginRights::MayMakeSame() {
  const auto& all = locations_.All();
  if (!MayModify()) {
    return false;
  }
  if (all.size() < 2) {
    return true;
  }
  const auto chosen = locations_.Chosen();
  if (chosen.size() != 1 || std::ranges::find(all, chosen.front()) == all.end()) {
    Tell("Please choose the location whose rights the other locations are to have.");
    return false;
  }
  return Confirm("The rights of [" + locations_.NameOf(chosen.front()) +
                     "] will replace those of all other locations.\r\nDo you want to continue?",
                 kAssignment);
}

void LoginRights::CopyToOthers(std::int32_t from, Product product) {
  const Grants source = At(from);
  for (const std::int32_t location : locations_.All()) {
    for (std::size_t right = 0; right < source.size(); ++right) {
      if (catalogue_[right].product == product) {
        At(location)[right].now = source[right].now;
      }
    }
  }
}

std::vector<Product> LoginRights::Products() const {
  std::vector<Product> products;
  for (const Product product : {Product::Practice, Product::TimeClock}) {
    if (std::ranges::find(catalogue_, product, &session::Right::product) != catalogue_.end()) {
      products.push_back(product);
    }
  }
  return products;
}

bool LoginRights::Unsaved() const {
  return std::ranges::any_of(grants_, [](const auto& at) {
    return std::ranges::any_of(at.second, [](const Grant& grant) { return grant.now != grant.stored; });
  });
}

bool LoginRights::GivesNone(Product product) {
  for (const std::int32_t location : locations_.All()) {
    At(location);
  }
  return std::ranges::none_of(grants_, [&](const auto& at) {
    bool gives = IsSupervisor(at.second);
    for (std::size_t right = 0; right < catalogue_.size() && !gives; ++right) {
      gives = catalogue_[right].product == product && at.second[right].now.any();
    }
    return gives;
  });
}

void LoginRights::GiveDefaults() {
  for (const Product product : Products()) {
    const auto is_default = [product](const session::Right& right) {
      return right.product == product && right.by_default;
    };
    if (std::ranges::none_of(catalogue_, is_default) || !GivesNone(product)) {
      continue;
    }
    const auto& locations = locations_.All();
    for (const std::int32_t location : locations) {
      for (std::size_t right = 0; right < catalogue_.size(); ++right) {
        if (is_default(catalogue_[right])) {
          At(location)[right].now.set();
        }
      }
    }
    context_.user.Tell("You did not enter any " + NameOf(product) +
                           " rights for this new employee. Default rights have been assigned for you" +
                           (locations.size() > 1 ? " at all locations." : "."),
                       std::string(kAssignment));
  }
  FGrd.Refresh();
}

bool LoginRights::ChangesAt(std::int32_t location, Product product) {
  const Grants& grants = At(location);
  for (std::size_t right = 0; right < grants.size(); ++right) {
    if (catalogue_[right].product == product && grants[right].now != grants[right].stored) {
      return true;
    }
  }
  return false;
}

void LoginRights::AskAboutOthers() {
  for (auto& [product, where] : edited_) {
    std::erase_if(where, [this, product = product](std::int32_t location) { return !ChangesAt(location, product); });
    if (where.size() != 1 || locations_.All().size() < 2 || chkSameRights.Value == forms::CheckState::On ||
        context_.session.UserOption(kOptions, OptionOf(product)) == kDontAsk) {
      continue;
    }
    const forms::Answer answer =
        context_.user.Ask({.text = "Do you want to apply the " + NameOf(product) +
                                   " Rights from this location to your other locations as well?",
                           .title = std::string(kAssignment),
                           .buttons = {forms::Answer::Yes, forms::Answer::DontAsk, forms::Answer::No},
                           .icon = forms::Icon::Question});
    if (answer == forms::Answer::Yes) {
      CopyToOthers(*where.begin(), product);
    } else if (answer == forms::Answer::DontAsk) {
      context_.session.SetUserOption(kOptions, OptionOf(product), kDontAsk);
    }
  }
  edited_.clear();
  FGrd.Refresh();
}

void LoginRights::EditLocations() {
  if (!MayModify()) {
    return;
  }
  if (login_.id == 0) {
    Tell("You must save first before you can select Office Location Setup.\r\nClick [Apply] to Save.");
    return;
  }
  context_.screens.EditLoginLocations(login_.id);
}

}  // namespace people
