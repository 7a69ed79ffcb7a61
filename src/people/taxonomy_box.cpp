#include "people/taxonomy_box.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "forms/text.h"

namespace people {
namespace {

struct Taxonomy {
  std::string_view name;
  std::string_view code;
};
constexpr std::array kTaxonomies = {Taxonomy{"Dentist", "122300000X"},
                                    Taxonomy{"General Practice", "1223G0001X"},
                                    Taxonomy{"Dental (Public Health)", "1223D0001X"},
                                    Taxonomy{"Endodontics", "1223E0200X"},
                                    Taxonomy{"Oral and Maxillofacial Surgery", "1223S0112X"},
                                    Taxonomy{"Orthodontics and Dentofacial Orthopedics", "1223X0400X"},
                                    Taxonomy{"Pediatric Dentistry", "1223P0221X"},
                                    Taxonomy{"Periodontics", "1223P0300X"},
                                    Taxonomy{"Dental Assistant", "126800000X"},
                                    Taxonomy{"Dental Hygienist", "124Q00000X"},
                                    Taxonomy{"Dental Laboratory Technician", "126900000X"},
                                    Taxonomy{"Denturist", "122400000X"},
                                    Taxonomy{"Oral and Maxillofacial Pathology", "1223P0106X"},
                                    Taxonomy{"Oral and Maxillofacial Radiology", "1223X0008X"},
                                    Taxonomy{"Prosthodontics", "1223P0700X"}};

auto Find(std::string_view code) {
  return std::ranges::find_if(kTaxonomies,
                              [&](const Taxonomy& taxonomy) { return forms::EqualsIgnoringCase(taxonomy.code, code); });
}

}  // namespace

TaxonomyBox::TaxonomyBox() {
  std::vector<forms::ListItem> items;
  std::ranges::transform(kTaxonomies, std::back_inserter(items),
                         [](const Taxonomy& taxonomy) { return forms::ListItem{std::string(taxonomy.name)}; });
  Items = std::move(items);
  Told = [](const std::string& code) {
    const auto* known = Find(code);
    return known == kTaxonomies.end() ? code : std::string(known->name);
  };
}

std::string TaxonomyBox::FieldText() const {
  if (ListIndex < 0) {
    return {};
  }
  const auto index = static_cast<std::size_t>(ListIndex.get());
  return index < kTaxonomies.size() ? std::string(kTaxonomies.at(index).code) : Items.get()[index].text;
}

void TaxonomyBox::SetFieldText(std::string code) {
  const auto* known = Find(code);
  std::vector<forms::ListItem> items = Items;
  items.resize(kTaxonomies.size());
  int index = known == kTaxonomies.end() ? -1 : static_cast<int>(known - kTaxonomies.begin());
  if (index < 0 && !code.empty()) {
    index = static_cast<int>(items.size());
    items.push_back({.text = std::move(code)});
  }
  ListIndex = -1;
  Items = std::move(items);
  ListIndex = index;
}

bool TaxonomyBox::OnKey(forms::Key key) {
  if (key == forms::Key::Delete) {
    ListIndex = -1;
  }
  return key == forms::Key::Delete || ComboBox::OnKey(key);
}

}  // namespace people
