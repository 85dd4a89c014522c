# shellcheck shell=bash
# The steps that ./run and ./test share. Sourced, at the root of the tree.

step() { printf '\n==> %s\n' "$*"; }

fail() {
  printf '\n%s: %s\n' "$(basename "$0")" "$1" >&2
  shift
  if [ $# -gt 0 ]; then printf '  %s\n' "$@" >&2; fi
  exit 1
}

# packages_for build screen: the names of the packages for these purposes.
packages_for() {
  local purpose
  for purpose in "$@"; do
    awk -v purpose="$purpose" '$1 == purpose { print $2 }' packaging/packages
  done
}

missing_packages() {
  local installed
  installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
  printf '%s\n' "$@" | grep -vxF -f <(awk '$1 == "installed" { print $2 }' <<<"$installed") || true
}

# install_packages build screen: installs those that are missing; touches nothing when none is.
install_packages() {
  local wanted missing
  as_root=()
  mapfile -t wanted < <(packages_for "$@")
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    step "No apt on this machine, so going on without looking for packages. Needed are Debian's"
    fmt -w 96 <<<"${wanted[*]}"
    return
  fi
  mapfile -t missing < <(missing_packages "${wanted[@]}")
  if [ ${#missing[@]} -eq 0 ]; then return; fi

  step "Installing missing packages with apt: ${missing[*]}"
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
      fail "installing packages needs root, and there is no sudo here. Run this as root, then start again:" \
        "apt-get update && apt-get install --no-install-recommends ${missing[*]}"
    as_root=(sudo)
  fi
  apt_get update || echo "Not all package lists could be fetched; trying with those that are here."
  forbid_first_cluster
  apt_get install --no-install-recommends "${missing[@]}" || {
    allow_first_cluster
    fail "apt could not install the packages; its own words are above." \
      "Needed are: ${missing[*]}"
  }
  allow_first_cluster
}

# Debian's package of the database server makes a database and starts it, when it is installed for
# the first time. The tests only want its programs: they start servers of their own. A machine that
# has had the package before is left as it is.
no_cluster=/etc/postgresql-common/createcluster.d/veyra-no-cluster.conf
forbid_first_cluster() {
  if [[ " ${missing[*]} " == *" postgresql "* && ! -e /etc/postgresql-common/createcluster.conf ]]; then
    # shellcheck disable=SC2016 # The inner shell is to expand them.
    "${as_root[@]}" sh -c 'mkdir -p "$(dirname "$0")" && echo "create_main_cluster = false" >"$0"' \
      "$no_cluster"
  fi
}

allow_first_cluster() {
  if [ -e "$no_cluster" ]; then "${as_root[@]}" rm -f "$no_cluster"; fi
}

# apt_get ARGUMENTS: asks nothing, and reports how far it has come on one line.
apt_get() {
  local log status=0
  log=$(mktemp)
  # shellcheck disable=SC2016 # The inner shell is to expand them.
  "${as_root[@]}" sh -c 'DEBIAN_FRONTEND=noninteractive exec \
    apt-get -y -q -o Dpkg::Use-Pty=0 -o APT::Status-Fd=3 "$@" 3>&1 >"$0" 2>&1 </dev/null' \
    "$log" "$@" | show_progress || status=$?
  if [ $status -ne 0 ]; then tail -n 20 "$log" >&2; fi
  rm -f "$log"
  return $status
}

# Reads apt's status lines, "kind:what:percent:words". A terminal sees each in place of the one
# before; a log file gets one for every tenth.
show_progress() {
  local kind percent words last=
  while IFS=: read -r kind _ percent words; do
    percent=${percent%%[!0-9]*}
    if [ -z "$percent" ]; then continue; fi
    if [ -t 1 ]; then
      printf '\r\033[K  %3d %%  %.70s' "$percent" "$words"
    elif [ "$kind$((percent / 10))" != "$last" ]; then
      printf '  %3d %%  %s\n' "$percent" "$words"
    fi
    last=$kind$((percent / 10))
  done
  if [ -t 1 ]; then printf '\r\033[K'; fi
}

# configure CMAKE_ARGUMENTS: prepares build/.
configure() {
  step "Configuring build/"
  cmake --preset default --log-level=WARNING "$@" ||
    fail "CMake could not configure the build; its own words are above."
}

# build TARGET...: builds what is out of date, as many files at once as there are processors.
build() {
  ninja -C build "$@" || fail "the build failed; the compiler's words are above."
}
