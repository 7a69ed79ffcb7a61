#pragma once

#include <string>

namespace host {

// Writes what a demo practice has in its data folder: the letters of its recalls, of birthdays and of the news in "WP",
// templates of every kind of reminder with ready-made ones below "STP/Templates". A file that is there stays as it is,
// and what cannot be written is left out.
void WriteDemoFiles(const std::string& data_folder);

}  // namespace host
