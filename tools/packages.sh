# Debian packages by the purpose they serve, and how they come onto the machine. Sourced, from the
# top of the tree, by the commands that need them.

build_packages="g++ cmake ninja-build pkg-config qt6-base-dev qt6-declarative-dev
  qt6-declarative-dev-tools qt6-wayland qml6-module-qtquick qml6-module-qtquick-window
  qml6-module-qtqml qml6-module-qtqml-workerscript
  fonts-quicksand libpulse-dev libsndfile1-dev librsvg2-bin python3"
desktop_packages="xvfb openbox xdotool dbus at-spi2-core python3 python3-pyatspi gir1.2-atspi-2.0
  pulseaudio pulseaudio-utils imagemagick fluidsynth timgm6mb-soundfont fonts-dejavu-core"
test_packages="qml6-module-qttest libgtest-dev libgmock-dev clang-format-19 pipewire
  pipewire-bin pipewire-pulse wireplumber x11-utils util-linux desktop-file-utils appstream man-db strace
  weston wayland-utils locales git xz-utils"
packaging_packages="build-essential debhelper fakeroot lintian git xz-utils"
other_debian_packages="debootstrap util-linux"
emulator_packages="qemu-user-static binfmt-support"
# What compiles, on amd64, and what it links, of each architecture.
cross_packages="g++ cmake ninja-build pkg-config qt6-base-dev-tools qt6-declarative-dev-tools librsvg2-bin
  python3 fluidsynth timgm6mb-soundfont"
cross_libraries="libgtest-dev libgmock-dev libsndfile1-dev libstdc++6"
cross_desktop_libraries="qt6-base-dev qt6-declarative-dev qml6-module-qttest libpulse-dev libbenchmark-dev"
bench_packages="libbenchmark-dev"
fuzz_packages="clang-19 libclang-rt-19-dev"

# missing PACKAGE...: those that are not installed.
missing() {
  local package
  for package in "$@"; do
    dpkg-query --show --showformat='${db:Status-Status}\n' "$package" 2>/dev/null |
      grep -qx installed || echo "$package"
  done
}

is_debian() {
  [ -r /etc/os-release ] && (. /etc/os-release && [ "${ID:-}" = debian ])
}

# apt_get ARGUMENT...: as root.
apt_get() {
  if [ "$(id -u)" = 0 ]; then
    env DEBIAN_FRONTEND=noninteractive apt-get -qq "$@"
  elif command -v sudo >/dev/null; then
    sudo env DEBIAN_FRONTEND=noninteractive apt-get -qq "$@"
  else
    echo "There is no sudo here. As root: apt-get $*" >&2
    exit 1
  fi
}

# need PURPOSE PACKAGE...: installs what is missing, or says what to install and ends the program.
need() {
  local purpose=$1 lacking
  shift
  [ -z "${CORVANE_PACKAGES_INSTALLED:-}" ] || return 0
  if ! is_debian; then
    echo "This is not Debian. For $purpose, install what Debian calls:" >&2
    printf '  %s\n' "$@" >&2
    echo "and run again with CORVANE_PACKAGES_INSTALLED=1." >&2
    exit 1
  fi
  lacking=$(missing "$@")
  [ -n "$lacking" ] || return 0
  echo "Installing for $purpose:" $lacking
  apt_get update || exit 1
  # Never at the price of what the user has: another audio server, say.
  apt_get install --no-install-recommends --no-remove --yes $lacking >/dev/null || exit 1
}
