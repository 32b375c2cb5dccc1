# Packages by the purpose they serve, and how they come onto the machine. Sourced, from the top of the tree,
# by the commands that need them. Debian's names stand for the packages; packaging/packages has those of
# other systems.

# named PURPOSE...: the Debian packages that packaging/packages has for it.
named() {
  awk -v purposes=" $* " '!/^#/ && index(purposes, " " $1 " ") {print $3}' packaging/packages
}

build_packages=$(named compiler build library run own)
desktop_packages=$(named desktop)
test_packages="qml6-module-qttest libgtest-dev libgmock-dev clang-format-19 pipewire
  pipewire-bin pipewire-pulse wireplumber x11-utils util-linux desktop-file-utils appstream man-db strace
  weston wayland-utils locales git xz-utils"
packaging_packages="$(named check) build-essential debhelper fakeroot lintian git xz-utils"
other_debian_packages="debootstrap util-linux"
emulator_packages="qemu-user-static binfmt-support"
# What compiles, on amd64, and what it links, of each architecture.
cross_packages="g++ cmake ninja-build pkg-config qt6-base-dev-tools qt6-declarative-dev-tools librsvg2-bin
  python3 fluidsynth timgm6mb-soundfont"
cross_libraries="libgtest-dev libgmock-dev libsndfile1-dev libstdc++6"
cross_desktop_libraries="qt6-base-dev qt6-declarative-dev qml6-module-qttest libpulse-dev libbenchmark-dev"
bench_packages="libbenchmark-dev"
fuzz_packages="clang-19 libclang-rt-19-dev"

# The column of packaging/packages that has this system's names; nothing where none has.
system() {
  local ID= ID_LIKE= word
  [ ! -r "$os_release" ] || . "$os_release"
  for word in $ID $ID_LIKE; do
    case "$word" in
      debian | ubuntu) echo debian; return ;;
      fedora | rhel) echo fedora; return ;;
      opensuse* | suse) echo opensuse; return ;;
      arch) echo arch; return ;;
    esac
  done
}
os_release=${CORVANE_OS_RELEASE:-/etc/os-release}

is_debian() {
  [ -r "$os_release" ] && (. "$os_release" && [ "${ID:-}" = debian ])
}

# translate SYSTEM PACKAGE...: what the system calls these Debian packages; "?NAME" where that is not known.
translate() {
  local system=$1
  shift
  [ "$system" != debian ] || { printf '%s\n' "$@"; return; }
  printf '%s\n' "$@" | awk -v name="$system" '
    /^# purpose/ { for (i = 2; i <= NF; ++i) if ($i == name) column = i - 1 }
    !asked { if (!/^#/) theirs[$3] = $column; next }
    !($1 in theirs) || theirs[$1] == "?" { print "?" $1; next }
    theirs[$1] != "-" { print theirs[$1] }' packaging/packages asked=1 - | sort -u
}

# missing SYSTEM PACKAGE...: those that are not installed.
missing() {
  local system=$1 package
  shift
  for package in "$@"; do
    case "$system" in
      debian)
        dpkg-query --show --showformat='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ;;
      arch) pacman --deptest "$package" >/dev/null ;;
      *) rpm --query --whatprovides "$package" >/dev/null 2>&1 ;;
    esac || echo "$package"
  done
}

# How apt reaches the mirrors from here, for another system on this machine.
apt_settings() {
  apt-config dump Acquire::http Acquire::https Acquire::Check-Valid-Until Acquire::Check-Date
}

as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "There is no sudo here. As root: $*" >&2
    exit 1
  fi
}

# installer SYSTEM: its command. Never at the price of what the user has: another audio server, say.
installer() {
  case "$1" in
    debian) echo "env DEBIAN_FRONTEND=noninteractive apt-get -qq install --no-install-recommends --no-remove --yes" ;;
    fedora) echo "dnf install --assumeyes" ;;
    opensuse) echo "zypper --non-interactive install --no-recommends" ;;
    arch) echo "pacman --sync --needed --noconfirm" ;;
  esac
}

# ask PURPOSE COMMAND...: ends the program where nobody agrees.
ask() {
  local purpose=$1 answer=
  shift
  echo "For $purpose, packages have to be installed:"
  echo "  $*"
  [ ! -t 0 ] || read -r -p "Run this command as root? [y/N] " answer || true
  case "$answer" in
    [yY]*) ;;
    *) echo "Run again when they are installed, with CORVANE_PACKAGES_INSTALLED=1 where their names differ." >&2
       exit 1 ;;
  esac
}

# need PURPOSE PACKAGE...: installs what is missing, or says what to install and ends the program. Asks
# first on any system but Debian, and continues there without what it does not find.
need() {
  local purpose=$1 system names lacking install package
  shift
  [ -z "${CORVANE_PACKAGES_INSTALLED:-}" ] || return 0
  system=$(system)
  if [ -z "$system" ]; then
    echo "This system's names of packages are not known. For $purpose, install what Debian calls:" >&2
    printf '  %s\n' "$@" >&2
    echo "and run again with CORVANE_PACKAGES_INSTALLED=1." >&2
    exit 1
  fi
  names=$(translate "$system" "$@")
  lacking=$(missing "$system" $(grep -v '^?' <<<"$names"))
  [ -n "$lacking" ] || return 0
  install=$(installer "$system")
  if is_debian; then
    echo "Installing for $purpose:" $lacking
    as_root apt-get -qq update || exit 1
    as_root $install $lacking >/dev/null || exit 1
    return
  fi
  names=$(sed -n 's/^?//p' <<<"$names")
  [ -z "$names" ] || echo "Not known by this system's names, so left out:" $names
  ask "$purpose" $install $lacking
  [ "$system" != debian ] || as_root apt-get -qq update
  as_root $install $lacking && return
  for package in $lacking; do
    as_root $install "$package" || echo "Continuing without $package."
  done
}
