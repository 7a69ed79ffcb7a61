// Preloaded into Broadway's server. Programs come to that at an abstract socket, which has no rights as files have:
// processes of other users are turned away here, before they could show windows and take keys.
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace {

bool IsOfThisUser(int caller) {
  ucred peer{};
  socklen_t length = sizeof peer;
  return getsockopt(caller, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && peer.uid == geteuid();
}

int AcceptThisUser(int listener, sockaddr* address, socklen_t* length, int flags) {
  const int caller = static_cast<int>(syscall(SYS_accept4, listener, address, length, flags));
  if (caller >= 0 && !IsOfThisUser(caller)) {
    close(caller);
    errno = ECONNABORTED;
    return -1;
  }
  return caller;
}

}  // namespace

// In the place of the C library's; which of the two the server calls depends on its version of GLib.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the library's names are reserved ones
extern "C" int accept(int listener, sockaddr* address, socklen_t* length) {
  return AcceptThisUser(listener, address, length, 0);
}

extern "C" int accept4(int listener, sockaddr* address, socklen_t* length, int flags) {
  return AcceptThisUser(listener, address, length, flags);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
