# Debian packages by the purpose they serve, and how they come onto the machine. Sourced, from the
# top of the tree, by the commands that need them.

build_packages="g++ cmake ninja-build pkg-config qt6-base-dev qt6-declarative-dev
  qt6-declarative-dev-tools qml6-module-qtquick qml6-module-qtquick-window qml6-module-qtqml
  qml6-module-qtqml-workerscript libpulse-dev libsndfile1-dev"
desktop_packages="xvfb xauth openbox xdotool x11-utils dbus at-spi2-core python3 python3-pyatspi
  gir1.2-atspi-2.0 pulseaudio pulseaudio-utils imagemagick fluidsynth timgm6mb-soundfont
  fonts-dejavu-core"
test_packages="libgtest-dev libgmock-dev librapidcheck-dev clang-format pipewire pipewire-bin
  pipewire-pulse wireplumber util-linux procps git"

# missing PACKAGE...: those that are not installed.
missing() {
  local package
  for package in "$@"; do
    dpkg-query --show --showformat='${db:Status-Status}\n' "$package" 2>/dev/null |
      grep -qx installed || echo "$package"
  done
}

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# need PURPOSE PACKAGE...: installs what is missing, or says what to install and ends the program.
need() {
  local purpose=$1 lacking
  shift
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    [ -n "${CORVANE_PACKAGES_INSTALLED:-}" ] && return
    echo "This is not a Debian system. $purpose needs what Debian calls:" >&2
    printf '  %s\n' "$@" >&2
    echo "Install them and run again with CORVANE_PACKAGES_INSTALLED=1." >&2
    exit 1
  fi
  lacking=$(missing "$@")
  [ -n "$lacking" ] || return 0
  echo "Installing, because $purpose needs them:" $lacking
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -qq --no-install-recommends -y $lacking >/dev/null
}
