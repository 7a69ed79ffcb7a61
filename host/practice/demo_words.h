#pragma once

#include <span>
#include <string_view>

// Words that demo people, streets and firms are named with.
namespace host::demo {

std::span<const std::string_view> WomensNames();
std::span<const std::string_view> MensNames();
std::span<const std::string_view> LastNames();
std::span<const std::string_view> Streets();
std::span<const std::string_view> Carriers();
std::span<const std::string_view> Pharmacies();
std::span<const std::string_view> Trades();  // what a firm does, behind its owner's name

}  // namespace host::demo
