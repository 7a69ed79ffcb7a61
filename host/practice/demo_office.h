#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/dates.h"
#include "practice/demo_random.h"
#include "practice/practice.h"
#include "practice/table_writer.h"
#include "practice/zip_codes.h"

namespace host::demo {

// The day on which a demo practice stands.
inline constexpr forms::Date kToday{std::chrono::year(2026), std::chrono::November, std::chrono::day(20)};

struct Address {
  std::string line1;
  std::string line2;
  Place place;
};

// A row of PATable before it has an ID.
struct Person {
  std::string_view last = {};
  std::string_view first = {};
  char sex = 'F';
  std::string_view title = {};
  std::string_view professional_title = {};
  Address address = {};
  std::optional<forms::Date> birth = {};
  std::string home_phone = {};
  std::string work_phone = {};
  std::string cell = {};
  bool patient = false;
  bool provider = false;
  bool referral = false;
  bool physician = false;
  std::string_view employee = {};  // "1", "2" for a provider, "0" for one who has left
  std::string_view initials = {};
  std::string_view specialty = {};
  std::string_view taxonomy = {};  // the published provider taxonomy's code
  std::string licence = {};        // to practise
  std::string tax_number = {};
  std::string driving_licence = {};
  std::string_view billing_title = {};
  std::string_view card_type = {};
  std::string_view card_number = {};
  std::int32_t fee_schedule = 1;
  std::optional<forms::Date> employed = {};
  std::optional<forms::Date> released = {};
  std::optional<forms::Date> next_statement = {};
  std::int32_t family_head = 0;  // 0 for a head
  std::int32_t provider_id = 0;
  std::int32_t referral_id = 0;
  std::int32_t physician_id = 0;
  std::int32_t employer_link = 0;
  std::int32_t pharmacy = 0;
  std::int32_t location = 0;
};

// With as many zeros before it as make so many digits.
std::string Digits(int number, std::size_t count);

// One office while it is filled: what all its parts draw from.
class DemoOffice {
 public:
  DemoOffice(Practice& practice, std::int32_t office, Identities& identities, std::uint64_t seed);

  OfficeDatabase& Database() { return database_; }
  // What IDs, names and the order of rows follow from.
  Random& Chance() { return random_; }
  // For all that nothing else follows from.
  Random& Details() { return details_; }
  // A stream of its own for what is called so: drawing from it changes no other rows.
  Random Apart(std::string_view called) const;
  TableWriter Writer(std::string_view table, std::string_view columns);
  // For `AddPerson`.
  TableWriter PersonWriter();
  std::int32_t AddPerson(TableWriter& writer, const Person& person);

  // Somebody of the age who shares with `like` all that a household shares.
  Person MakePerson(std::string_view last, bool woman, int age, Person like);
  Address MakeAddress() { return MakeAddress(random_); }
  Address MakeAddress(Random& chance) const;
  std::string MakePhone() { return MakePhone(random_); }
  std::string MakePhone(Random& chance) const;
  forms::Date DaysAgo(int days) const;
  std::string_view LastName();

 private:
  OfficeDatabase database_;
  Identities& identities_;
  std::uint64_t seed_;
  Random random_;
  Random details_;
  std::span<const Place> neighbourhood_;
  int area_code_;
};

}  // namespace host::demo
