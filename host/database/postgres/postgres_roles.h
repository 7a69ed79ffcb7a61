#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "database/schema_writer.h"
#include "session/connection.h"

namespace host {

// A login of the server, or a group of logins, that the desks of a practice connect with.
struct DeskLogin {
  std::string name;
  std::vector<int> offices = {};  // of a practice of kind 7: those that it may enter
};

// What an empty database is given for that: `DeskTable`, and what grants and guards.
std::vector<std::string> DeskGround();

// Gives the logins that were admitted what a desk needs of the tables that there are, and no more: to read and write
// rows and to take keys, but for the change log, whose rows they only add, and the schema's version, which they only
// read. In a practice of kind 7 no login but the tables' owner sees or writes rows of an office that it may not enter;
// nor of another than the one that its session works in, where the session says so.
inline constexpr std::string_view kAdmitDesks = "SELECT practice.admit_desks()";

// Has the login work in the practice from now on, with these offices in place of earlier ones. For the tables' owner;
// the login is there already, and neither owns tables nor has rights on the whole server, which policies do not bind.
// All or nothing; throws session::DatabaseError. False when its searches read all rows, until a superuser has called
// this.
bool AdmitDesk(session::Connection& connection, const CreationOptions& options, const DeskLogin& login);

// Takes that back, whether the server still knows the login or not. The logins in it, groups, that it may go on working
// through. Throws session::DatabaseError, also when it is none of the practice's.
std::vector<std::string> RemoveDesk(session::Connection& connection, const std::string& login);

// The same in a group of practices, where each office's tables stand in a schema of their own: this is what a server
// has to know of the login, whatever is at home there. To be called in a transaction.
void NoteDesk(session::Connection& connection, const DeskLogin& login);
// Statements that give the logins that were admitted what they need of an office's schema, and take it from those that
// may not enter the office.
std::string AdmitDesksTo(int office, const std::string& schema);

}  // namespace host
