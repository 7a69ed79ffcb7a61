#pragma once

#include <filesystem>
#include <string>

// The files of a practice are shut to everybody but those who work in it.
namespace host {

// Who may open a file: the account that made it, or its group too, as a practice is shared by several accounts.
enum class Access { Owner, Group };

// Makes an empty file unless there is one, and takes from one that is there what goes beyond the access; one that
// belongs to somebody else is left as it is. What the engine left beside it, killed or while the file was protected, is
// given the file's mode. On Windows the folder's own list of accounts rules.
void MakePrivate(const std::string& path, Access access);
// What a practice's file grants; other files of the practice grant the same. A file that is not there: the owner.
Access AccessOf(const std::string& path);
// Makes a folder that only those can look into, and the folders above it, unless they are there.
void MakePrivateFolder(const std::filesystem::path& path, Access access = Access::Owner);

}  // namespace host
