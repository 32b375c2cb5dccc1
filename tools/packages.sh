# SPDX-License-Identifier: MIT
# Packages by purpose, and their installation. Sourced from the top of the tree. Packages have Debian's names;
# packaging/packages maps them to other systems.

# named PURPOSE...: the Debian packages of these purposes in packaging/packages.
named() {
  awk -v purposes=" $* " '!/^#/ && index(purposes, " " $1 " ") {print $3}' packaging/packages
}

build_packages=$(named compiler build library run own)
desktop_packages=$(named desktop)
test_packages="qml6-module-qttest libgtest-dev libgmock-dev clang-format-19 pipewire
  pipewire-bin pipewire-pulse wireplumber x11-utils util-linux desktop-file-utils appstream man-db strace
  weston wayland-utils locales git xz-utils reuse yamllint"
packaging_packages="$(named check) build-essential debhelper fakeroot lintian git xz-utils"
other_debian_packages="debootstrap util-linux"
emulator_packages="qemu-user-static binfmt-support"
# The compilers, for amd64, and the libraries, for each architecture.
cross_packages="g++ cmake ninja-build pkg-config qt6-base-dev-tools qt6-declarative-dev-tools librsvg2-bin
  python3 fluidsynth timgm6mb-soundfont"
cross_libraries="libgtest-dev libgmock-dev libsndfile1-dev libstdc++6"
cross_desktop_libraries="qt6-base-dev qt6-declarative-dev qml6-module-qttest libpulse-dev libbenchmark-dev"
bench_packages="libbenchmark-dev"
fuzz_packages="clang-19 libclang-rt-19-dev"
tidy_packages="clang-tidy-19"

# This system's column of packaging/packages; empty if unknown.
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

# translate SYSTEM PACKAGE...: the system's names of these Debian packages; "?NAME" if unknown.
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

# missing SYSTEM PACKAGE...: the packages that are not installed.
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

# apt's network settings, for another system on this machine.
apt_settings() {
  apt-config dump Acquire::http Acquire::https Acquire::Check-Valid-Until Acquire::Check-Date
}

as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "sudo not found. Run as root: $*" >&2
    exit 1
  fi
}

# installer SYSTEM: its command. Never removes installed packages, such as another audio server.
installer() {
  case "$1" in
    debian) echo "env DEBIAN_FRONTEND=noninteractive apt-get -qq install --no-install-recommends --no-remove --yes" ;;
    fedora) echo "dnf install --assumeyes" ;;
    opensuse) echo "zypper --non-interactive install --no-recommends" ;;
    arch) echo "pacman --sync --needed --noconfirm" ;;
  esac
}

# ask PURPOSE COMMAND...: exits unless the user agrees.
ask() {
  local purpose=$1 answer=
  shift
  echo "Required for $purpose:"
  echo "  $*"
  [ ! -t 0 ] || read -r -p "Run this command as root? [y/N] " answer || true
  case "$answer" in
    [yY]*) ;;
    *) echo "Install them and run again; if their names differ, with CORVANE_PACKAGES_INSTALLED=1." >&2
       exit 1 ;;
  esac
}

# need PURPOSE PACKAGE...: installs missing packages, or prints them and exits. Asks first on systems other than
# Debian, and continues there without packages that do not exist.
need() {
  local purpose=$1 system names lacking install package
  shift
  [ -z "${CORVANE_PACKAGES_INSTALLED:-}" ] || return 0
  system=$(system)
  if [ -z "$system" ]; then
    echo "Unknown system. For $purpose, install its equivalents of these Debian packages:" >&2
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
  [ -z "$names" ] || echo "Skipped, because this system's names are unknown:" $names
  ask "$purpose" $install $lacking
  [ "$system" != debian ] || as_root apt-get -qq update
  as_root $install $lacking && return
  for package in $lacking; do
    as_root $install "$package" || echo "Continuing without $package."
  done
}
