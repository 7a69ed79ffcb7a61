#include "practice/demo_procedures.h"

#include <algorithm>
#include <stdexcept>

#include "practice/demo_office.h"

namespace host::demo {
namespace {

struct Procedure {
  std::string_view description;
  int fee;
};
struct Variant {
  std::string_view description;
  int fee_percent;
};
// Every procedure in every variant, ten codes apart.
struct Group {
  std::string_view category;
  int first_code;
  std::vector<Procedure> procedures;
  std::vector<Variant> variants;
};

std::vector<Service> CustomaryServices() {
  return {{"D0101", "Examination, periodic", "Diagnostic", 62},
          {"D0102", "Examination, first visit", "Diagnostic", 98},
          {"D0201", "X-rays, two films", "X-Rays", 54},
          {"D0202", "X-rays, full mouth", "X-Rays", 155},
          {"D1001", "Cleaning, adult", "Preventive", 110},
          {"D1002", "Cleaning, child", "Preventive", 78},
          {"D1003", "Fluoride treatment", "Preventive", 42},
          {"D2001", "Filling, one surface", "Restoration", 185},
          {"D2002", "Filling, two surfaces", "Restoration", 235},
          {"D2701", "Crown, ceramic", "Crowns", 1340},
          {"D3001", "Root canal, front tooth", "Endodontics", 890},
          {"D3002", "Root canal, molar", "Endodontics", 1290},
          {"D4001", "Gum treatment, a quarter", "Periodontics", 275},
          {"D5001", "Denture, upper", "Prosthodontics, RM", 1890},
          {"D7001", "Extraction", "Oral Surgery", 220},
          {"D9001", "Night guard", "Adjunctive Gen. Serv.", 610}};
}

std::vector<Group> Groups() {
  const std::vector<Variant> teeth = {{"front tooth", 100}, {"premolar", 112}, {"molar", 135}};
  const std::vector<Variant> jaws = {{"upper", 100}, {"lower", 100}, {"both", 185}};
  return {
      {"Diagnostic",
       110,
       {{"Visit in pain", 85},
        {"Look at one problem", 70},
        {"Second opinion", 120},
        {"Plaster models", 105},
        {"Photographs", 60},
        {"Saliva test", 48}},
       {{"grown-up", 100}, {"child", 80}, {"at home", 160}, {"in the evening", 125}}},
      {"X-Rays",
       210,
       {{"Film of a root", 30},
        {"Film of a bite", 32},
        {"Film all around", 120},
        {"Film of the profile", 130},
        {"Picture in three dimensions", 310}},
       {{"first", 100}, {"each further", 70}, {"pair", 165}, {"done again", 50}}},
      {"Preventive",
       1110,
       {{"Grooves sealed", 55},
        {"Varnish", 45},
        {"Gap kept open, fixed", 330},
        {"Gap kept open, loose", 380},
        {"Lesson in brushing", 35},
        {"Talk about food", 40},
        {"Guard for sports", 190}},
       {{"grown-up", 100}, {"child", 75}, {"special care", 130}}},
      {"Restoration",
       2110,
       {{"Silver filling, milk tooth", 120},
        {"Silver filling, molar", 150},
        {"White filling, front tooth", 165},
        {"White filling, premolar", 180},
        {"White filling, molar", 205},
        {"Inlay of gold", 720},
        {"Inlay of porcelain", 760},
        {"Filling for the time being", 90}},
       {{"one side", 100}, {"two sides", 125}, {"three sides", 150}, {"four sides", 180}, {"all sides", 210}}},
      {"Crowns",
       2710,
       {{"Crown of gold", 1250},
        {"Crown of gold and porcelain", 1290},
        {"Crown of zirconia", 1310},
        {"Crown of steel", 280},
        {"Crown for the time being", 210},
        {"Pin and stump", 420},
        {"Crown set again", 120},
        {"Facing", 1100}},
       teeth},
      {"Endodontics",
       3110,
       {{"Root canal done again", 1150},
        {"Root end cut", 980},
        {"Nerve capped", 95},
        {"Nerve shortened", 210},
        {"Canal opened", 260},
        {"Whitening from inside", 240}},
       teeth},
      {"Periodontics",
       4110,
       {{"Roots smoothed", 280},
        {"Gum lifted", 720},
        {"Gum grafted", 940},
        {"Bone built up", 860},
        {"Pockets rinsed", 90},
        {"Loose teeth joined", 410},
        {"Gum care visit", 150}},
       {{"one tooth", 40}, {"two or three teeth", 70}, {"a quarter", 100}, {"all quarters", 330}}},
      {"Prosthodontics, RM",
       5110,
       {{"Denture, whole", 1850},
        {"Denture, partial, plastic", 1200},
        {"Denture, partial, metal", 1750},
        {"Denture on the day of extraction", 1980},
        {"Denture lined here", 320},
        {"Denture lined by the laboratory", 450},
        {"Denture mended", 190},
        {"Denture, tooth added", 170}},
       jaws},
      {"Maxillof.,Prosthetics",
       5910,
       {{"Palate plate", 2400}, {"Speech aid", 2100}, {"Shield for radiation", 900}, {"Jaw trainer", 640}},
       {{"grown-up", 100}, {"child", 90}}},
      {"Prosthodontice, FX",
       6110,
       {{"Bridge, tooth of gold", 1210},
        {"Bridge, tooth of zirconia", 1290},
        {"Bridge, anchor of gold", 1240},
        {"Bridge, anchor of porcelain", 1310},
        {"Bridge set again", 180},
        {"Implant, screw", 2100},
        {"Implant, post", 780}},
       teeth},
      {"Oral Surgery",
       7110,
       {{"Loose tooth taken", 150},
        {"Root rest taken", 260},
        {"Tooth in bone taken", 390},
        {"Wisdom tooth taken", 460},
        {"Growth taken", 520},
        {"Lip band cut", 340},
        {"Abscess opened", 230},
        {"Socket filled", 410}},
       {{"easy", 100}, {"hard", 150}, {"next to a nerve", 190}}},
      {"Orthodontics",
       8110,
       {{"Braces of metal", 2900},
        {"Braces of porcelain", 3300},
        {"Clear trays", 3100},
        {"Holding wire", 320},
        {"Early start", 1500},
        {"Bracket set again", 60}},
       jaws},
      {"Adjunctive Gen. Serv.",
       9110,
       {{"Numbing", 45},
        {"Laughing gas", 75},
        {"Sleep, a quarter of an hour", 190},
        {"Visit at home", 160},
        {"Bite ground in", 130},
        {"Whitening trays", 340},
        {"Pain stopped for now", 110},
        {"Letter to the carrier", 35}},
       {{"office hours", 100}, {"evening", 130}, {"holiday", 170}}},
  };
}

std::vector<Service> MakeServices() {
  std::vector<Service> services = CustomaryServices();
  for (const Group& group : Groups()) {
    int code = group.first_code;
    for (const Procedure& procedure : group.procedures) {
      for (std::size_t i = 0; i < group.variants.size(); ++i) {
        const Variant& variant = group.variants[i];
        services.push_back({"D" + Digits(code + static_cast<int>(i), 4),
                            std::string(procedure.description) + ", " + std::string(variant.description),
                            group.category, procedure.fee * variant.fee_percent / 100});
      }
      code += 10;
    }
  }
  return services;
}

}  // namespace

const std::vector<Service>& Services() {
  static const std::vector<Service> services = MakeServices();
  return services;
}

const data::GlobalPlanRow& CategoryOf(const Service& service) {
  const auto* found = std::ranges::find(data::kGlobalPlanRows, service.category, &data::GlobalPlanRow::description);
  if (found == data::kGlobalPlanRows.end()) {
    throw std::out_of_range("no category " + std::string(service.category));
  }
  return *found;
}

}  // namespace host::demo
