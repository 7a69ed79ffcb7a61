# Sourced by the scripts that install Debian's packages; they are silent and offline when nothing is missing.
# The script that sources this sets `name`, with which its messages begin, and `log`, the file that apt speaks to.

fail() {
  echo "$name: $1" >&2
  exit 1
}

command -v dpkg-query > /dev/null || fail "this needs Debian's packages (dpkg and apt)"

# missing_of PACKAGE...: those of the packages that are not installed, for any architecture.
missing_of() {
  local package
  for package; do
    dpkg-query -W -f '${db:Status-Status}\n' "$package" 2> /dev/null | grep -qx installed || echo "$package"
  done
}

# as_root COMMAND...: runs it with sudo when this is not root already; what it says goes to the log.
as_root() {
  local sudo=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo > /dev/null || fail "run it as root, or install sudo"
    sudo=(sudo)
  fi
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive "$@" > "$log" 2>&1 < /dev/null
}

# apt ARGUMENT...: apt-get as root, asking nothing.
apt() {
  as_root apt-get -o DPkg::Lock::Timeout=300 "$@"
}

# The line of the log that says most.
complaint() {
  grep -m 1 '^E:' "$log" || tail -n 1 "$log"
}
