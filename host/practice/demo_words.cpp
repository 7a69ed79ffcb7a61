#include "practice/demo_words.h"

#include <algorithm>
#include <array>
#include <utility>

namespace host::demo {
namespace {

constexpr auto kWomen = std::to_array<std::string_view>({
    "Abigail",    "Alexis",    "Alice",   "Amanda",   "Amber",     "Amy",      "Andrea",   "Angela",    "Anna",
    "Ashley",     "Barbara",   "Beth",    "Beverly",  "Brenda",    "Carol",    "Caroline", "Catherine", "Charlotte",
    "Cheryl",     "Christina", "Cindy",   "Claire",   "Cynthia",   "Danielle", "Deborah",  "Denise",    "Diana",
    "Donna",      "Doris",     "Dorothy", "Elena",    "Elizabeth", "Ellen",    "Emily",    "Emma",      "Erin",
    "Esther",     "Evelyn",    "Frances", "Gloria",   "Grace",     "Hannah",   "Heather",  "Helen",     "Irene",
    "Jacqueline", "Jane",      "Janet",   "Jennifer", "Jessica",   "Joan",     "Joyce",    "Judith",    "Julia",
    "Karen",      "Katherine", "Kelly",   "Kimberly", "Laura",     "Lauren",   "Linda",    "Lisa",      "Lucia",
    "Madison",    "Margaret",  "Maria",   "Marilyn",  "Martha",    "Mary",     "Megan",    "Melissa",   "Michelle",
    "Nancy",      "Natalie",   "Nicole",  "Olivia",   "Pamela",    "Patricia", "Rachel",   "Rebecca",   "Rose",
    "Ruth",       "Samantha",  "Sandra",  "Sara",     "Sharon",    "Shirley",  "Sophia",   "Stephanie", "Susan",
    "Teresa",     "Theresa",   "Tiffany", "Valerie",  "Vanessa",   "Veronica", "Victoria", "Virginia",  "Wendy",
    "Yvonne",
});

constexpr auto kMen = std::to_array<std::string_view>({
    "Aaron",    "Adam",    "Alan",      "Albert",      "Alexander", "Andrew",   "Anthony", "Arthur",  "Austin",
    "Benjamin", "Billy",   "Bobby",     "Bradley",     "Brandon",   "Brian",    "Bruce",   "Bryan",   "Carl",
    "Carlos",   "Charles", "Christian", "Christopher", "Craig",     "Daniel",   "David",   "Dennis",  "Dominic",
    "Donald",   "Douglas", "Dylan",     "Edward",      "Eric",      "Ethan",    "Eugene",  "Francis", "Frank",
    "Fred",     "Gabriel", "Gary",      "George",      "Gerald",    "Gregory",  "Harold",  "Harry",   "Henry",
    "Howard",   "Jack",    "Jacob",     "James",       "Jason",     "Jeffrey",  "Jeremy",  "Jerry",   "Jesse",
    "Joe",      "John",    "Jonathan",  "Jordan",      "Jose",      "Joseph",   "Joshua",  "Juan",    "Justin",
    "Keith",    "Kenneth", "Kevin",     "Kyle",        "Larry",     "Lawrence", "Logan",   "Louis",   "Luis",
    "Mark",     "Matthew", "Michael",   "Nathan",      "Nicholas",  "Noah",     "Patrick", "Paul",    "Peter",
    "Philip",   "Ralph",   "Randy",     "Raymond",     "Richard",   "Robert",   "Roger",   "Ronald",  "Roy",
    "Russell",  "Ryan",    "Samuel",    "Scott",       "Sean",      "Stephen",  "Terry",   "Thomas",  "Timothy",
    "Tyler",
});

constexpr auto kLast = std::to_array<std::string_view>({
    "Adams",    "Alexander", "Allen",     "Alvarez",   "Anderson",  "Bailey",   "Baker",      "Barnes",    "Bell",
    "Bennett",  "Brooks",    "Brown",     "Bryant",    "Butler",    "Campbell", "Carter",     "Castillo",  "Chavez",
    "Clark",    "Coleman",   "Collins",   "Cook",      "Cooper",    "Cox",      "Cruz",       "Davis",     "Diaz",
    "Edwards",  "Ellis",     "Evans",     "Fisher",    "Flores",    "Ford",     "Foster",     "Freeman",   "Garcia",
    "Gibson",   "Gomez",     "Gonzalez",  "Graham",    "Gray",      "Green",    "Griffin",    "Gutierrez", "Hall",
    "Hamilton", "Harris",    "Harrison",  "Hayes",     "Henderson", "Henry",    "Hernandez",  "Hill",      "Howard",
    "Hughes",   "Jackson",   "James",     "Jenkins",   "Jimenez",   "Johnson",  "Jones",      "Jordan",    "Kelly",
    "Kennedy",  "Kim",       "King",      "Lee",       "Lewis",     "Long",     "Lopez",      "Marshall",  "Martin",
    "Martinez", "Mason",     "McDonald",  "Mendoza",   "Miller",    "Mitchell", "Moore",      "Morales",   "Morgan",
    "Morris",   "Murphy",    "Murray",    "Myers",     "Nelson",    "Nguyen",   "O'Brien",    "O'Connor",  "Ortiz",
    "Owens",    "Parker",    "Patel",     "Patterson", "Perez",     "Perry",    "Peterson",   "Phillips",  "Powell",
    "Price",    "Ramirez",   "Ramos",     "Reed",      "Reyes",     "Reynolds", "Richardson", "Rivera",    "Roberts",
    "Robinson", "Rodriguez", "Rogers",    "Ross",      "Ruiz",      "Russell",  "Sanchez",    "Sanders",   "Scott",
    "Shaw",     "Simmons",   "Smith",     "Stevens",   "Stewart",   "Sullivan", "Taylor",     "Thomas",    "Thompson",
    "Torres",   "Tran",      "Turner",    "Vargas",    "Vasquez",   "Walker",   "Wallace",    "Ward",      "Washington",
    "Watson",   "Webb",      "Wells",     "West",      "White",     "Williams", "Wilson",     "Wood",      "Woods",
    "Wright",   "Young",     "Zimmerman", "Núñez",     "Peña",      "Ibáñez",
});

constexpr auto kRespelled = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"Allen", "Allan"},      {"Anderson", "Andersen"}, {"Bailey", "Bayley"},    {"Brooks", "Brookes"},
    {"Clark", "Clarke"},     {"Cook", "Cooke"},        {"Davis", "Davies"},     {"Gray", "Grey"},
    {"Griffin", "Griffen"},  {"Johnson", "Jonson"},    {"Kelly", "Kelley"},     {"McDonald", "MacDonald"},
    {"Mitchell", "Mitchel"}, {"Nelson", "Nelsen"},     {"Perry", "Perrie"},     {"Peterson", "Petersen"},
    {"Phillips", "Philips"}, {"Reed", "Reid"},         {"Rogers", "Rodgers"},   {"Smith", "Smyth"},
    {"Stevens", "Stephens"}, {"Stewart", "Stuart"},    {"Thompson", "Thomson"}, {"White", "Whyte"},
    {"Wood", "Woode"},       {"Young", "Younge"},
});

constexpr auto kStreets = std::to_array<std::string_view>({
    "Acorn Ln",         "Aspen Ct",       "Birchwood Dr",       "Briar Hill Rd",   "Canal St",
    "Cedar Ave",        "Chapel Ln",      "Cherry Blossom Way", "Clearwater Dr",   "Cobbler's Row",
    "Copper Kettle Rd", "Dogwood Ct",     "Eagle Crest Dr",     "Elm St",          "Fiddler's Green",
    "Foxglove Ln",      "Garden Ave",     "Grist Mill Rd",      "Harvest Way",     "Hazel St",
    "Hickory Ave",      "Juniper Ct",     "Lantern Ln",         "Larkspur Dr",     "Lighthouse Rd",
    "Maple Ave",        "Meadowbrook Dr", "Mill Pond Rd",       "Oak St",          "Old Orchard Rd",
    "Pheasant Run",     "Pine St",        "Quarry Rd",          "Quail Hollow Ct", "Ridgeline Dr",
    "River Bend Rd",    "Rosewood Ave",   "Saddle Club Rd",     "Sparrow Ln",      "Spruce St",
    "Station Rd",       "Sugar Maple Ct", "Sycamore Ave",       "Thistle Down Dr", "Timber Ridge Rd",
    "Walnut St",        "Weaver's Way",   "Willow Creek Rd",    "Windmill Ln",
});

constexpr auto kCarriers = std::to_array<std::string_view>({
    "Alder Valley Dental Plan",   "Beacon Hill Benefit Trust",   "Bluestem Mutual Dental",
    "Cascade Crown Insurance",    "Coppergate Health & Dental",  "Evergreen Smile Assurance",
    "Fairhaven Benefit Fund",     "Granite State Dental Mutual", "Harborlight Insurance",
    "Ivory Coast Benefit Co.",    "Juniper Dental Indemnity",    "Keystone Arch Dental",
    "Lakeshore Employees' Trust", "Midland Prairie Dental",      "Northfield Dental Mutual",
    "Orchard Park Insurance",     "Pinnacle Ridge Benefits",     "Quarterline Dental Plan",
    "Riverbend Life & Dental",    "Silver Birch Assurance",
});

constexpr auto kPharmacies = std::to_array<std::string_view>({
    "Corner Apothecary",
    "Greenleaf Pharmacy",
    "Hillside Drug Store",
    "Main Street Pharmacy",
    "Mortar & Pestle",
    "Parkway Drugs",
    "Sunrise Pharmacy",
    "Town Square Chemists",
});

constexpr auto kTrades = std::to_array<std::string_view>({
    "Accounting",       "Auto Body",     "Bakery",      "Books",        "Builders",   "Cabinet Works", "Catering",
    "Construction",     "Dairy",         "Electric",    "Feed & Grain", "Florists",   "Foods",         "Furniture",
    "Hardware",         "Heating & Air", "Landscaping", "Logistics",    "Lumber",     "Machine Shop",  "Manufacturing",
    "Moving & Storage", "Nursery",       "Optical",     "Packaging",    "Paper Mill", "Plumbing",      "Printing",
    "Public Schools",   "Realty",        "Software",    "Steel",        "Surveying",  "Textiles",      "Trucking",
});

}  // namespace

std::span<const std::string_view> WomensNames() {
  return kWomen;
}
std::span<const std::string_view> MensNames() {
  return kMen;
}
std::span<const std::string_view> LastNames() {
  return kLast;
}
std::string_view Respelled(std::string_view last_name) {
  const auto* known = std::ranges::find(kRespelled, last_name, &std::pair<std::string_view, std::string_view>::first);
  return known == kRespelled.end() ? std::string_view() : known->second;
}
std::span<const std::string_view> Streets() {
  return kStreets;
}
std::span<const std::string_view> Carriers() {
  return kCarriers;
}
std::span<const std::string_view> Pharmacies() {
  return kPharmacies;
}
std::span<const std::string_view> Trades() {
  return kTrades;
}

}  // namespace host::demo
