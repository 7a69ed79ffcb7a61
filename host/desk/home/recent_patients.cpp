#include "home/recent_patients.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace host {
namespace {

constexpr std::string_view kSection = "PRACTICE_DESK";
constexpr std::string_view kKey = "RECENT_PATIENTS";  // "12,7,405"
constexpr std::size_t kMost = 15;

}  // namespace

std::vector<std::int32_t> RecentPatients(const session::Settings& settings) {
  std::vector<std::int32_t> patients;
  std::istringstream kept(settings.UserOption(kSection, kKey));
  for (std::string id; std::getline(kept, id, ',') && patients.size() < kMost;) {
    if (const std::int32_t patient = session::ToId(session::Value(id)); patient != 0) {
      patients.push_back(patient);
    }
  }
  return patients;
}

void RememberPatient(session::Settings& settings, std::int32_t patient) {
  std::vector<std::int32_t> patients = RecentPatients(settings);
  std::erase(patients, patient);
  patients.insert(patients.begin(), patient);
  patients.resize(std::min(patients.size(), kMost));
  std::string kept;
  for (const std::int32_t id : patients) {
    kept += (kept.empty() ? "" : ",") + std::to_string(id);
  }
  try {
    settings.SetUserOption(kSection, kKey, kept);
  } catch (const session::DatabaseError&) {  // NOLINT(bugprone-empty-catch): the list stays as it was
  }
}

}  // namespace host
