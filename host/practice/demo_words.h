#pragma once

#include <span>
#include <string_view>

// Words that demo people, streets and firms are named with.
namespace host::demo {

std::span<const std::string_view> WomensNames();
std::span<const std::string_view> MensNames();
std::span<const std::string_view> LastNames();
// One of the last names as others write it who are called the same; empty where all write it alike.
std::string_view Respelled(std::string_view last_name);
std::span<const std::string_view> Streets();
std::span<const std::string_view> Carriers();
std::span<const std::string_view> Pharmacies();
std::span<const std::string_view> Trades();  // what a firm does, behind its owner's name

}  // namespace host::demo
