#pragma once

#include <string>
#include <string_view>

namespace host {

// An e-mail's source, as `SourceOf` writes it, for a person to read: receiver, subject, and the plain text. The source
// may end early.
std::string ReadableMail(std::string_view source);

}  // namespace host
