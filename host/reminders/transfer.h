#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "reminders/reminder_settings.h"

namespace host {

// The most that a transfer takes.
inline constexpr std::chrono::seconds kTransferTime{10};

// Called now and then while a transfer runs; true gives it up.
using WhileSending = std::function<bool()>;

// Hands the source of an e-mail to the settings' server. Why it did not take it; empty when it did.
std::string SendMail(const ReminderSettings& settings, const std::string& to, const std::string& source,
                     const WhileSending& while_sending);
// Posts JSON to the settings' web hook. As above; it took it when it answered with a number from 200 to 299.
std::string PostToHook(const ReminderSettings& settings, const std::string& json, const WhileSending& while_sending);

}  // namespace host
