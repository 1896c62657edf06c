# What the project needs on a machine, by purpose, as Debian and Ubuntu name it.

packages_for() {
  case $1 in
    build) echo build-essential cmake ninja-build ccache pkg-config libfreetype-dev libfontconfig-dev libicu-dev \
      libsqlite3-dev libx11-dev libxext-dev libxrandr-dev libsdl2-dev libpng-dev libjpeg-dev libgif-dev googletest fonts-wine fonts-liberation fonts-dejavu ;;
    test) echo git ;;
    demo) echo fonts-liberation ;;
    sanitized) echo clang "$(first_known libclang-rt-14-dev libclang-rt-dev)" ;;
    style) echo clang clang-format clang-tidy ;;
    windows) echo g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix mingw-w64-tools wine64 wine xvfb xauth \
      debootstrap ;;
    desktop) echo xvfb xauth xdotool xclip x11-utils x11-xkb-utils x11-xserver-utils imagemagick openbox \
      weston sqlite3 ;;
    exchange) echo libreoffice-draw-nogui ;;
    bench) echo xvfb xauth libfltk1.3-dev qtbase5-dev libcairo2-dev ;;
  esac
}

# The first of the names that apt knows: some packages are called otherwise on other releases.
first_known() {
  local name
  for name in "$@"; do
    if apt-cache show "$name" >/dev/null 2>&1 || dpkg-query -W "$name" >/dev/null 2>&1; then
      echo "$name"
      return
    fi
  done
  echo "$1"
}

installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# need_packages PURPOSE...: installs what is missing for the purposes.
need_packages() {
  local purpose name missing=()
  if ! command -v dpkg-query >/dev/null 2>&1 || ! command -v apt-get >/dev/null 2>&1; then
    name_packages "$@"
    return
  fi
  for purpose in "$@"; do
    for name in $(packages_for "$purpose"); do
      installed "$name" || missing+=("$name")
    done
  done
  [ ${#missing[@]} -eq 0 ] && return
  local root=()
  if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null 2>&1 || die "These packages are missing and neither root nor sudo is at hand: ${missing[*]}"
    root=(sudo)
  fi
  step "Reading the package lists" "${root[@]}" apt-get update
  # Some names are known only once the lists are there.
  missing=()
  for purpose in "$@"; do
    for name in $(packages_for "$purpose"); do
      installed "$name" || missing+=("$name")
    done
  done
  step "Installing ${missing[*]}" "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}"
}

TESELA_PACKAGES_NAMED=
name_packages() {
  local purpose
  [ -n "$TESELA_PACKAGES_NAMED" ] && return
  TESELA_PACKAGES_NAMED=1
  fail "There is no apt-get here. Needed, by Debian's names (going on with what is there):"
  for purpose in "$@"; do
    echo "   $(packages_for "$purpose")" >&2
  done
}
