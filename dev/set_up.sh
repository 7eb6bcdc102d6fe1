# Shared by run and test: finds what is missing on this machine, installs it, builds a release in build/.
# Sourced with `root` and `me` (the command's name) set. Quiet where there is nothing to do.

build=$root/build
log=$build/setup.log

tools_debian="g++ cmake ninja-build"
libraries_debian="qt6-base-dev libqt6opengl6-dev qt6-tools-dev liblcms2-dev libcli11-dev
  nlohmann-json3-dev libexpat1-dev"
at_run_time_debian="libgs-common fonts-liberation fonts-dejavu-core qt6-image-formats-plugins"
for_tests_debian="libgtest-dev libgmock-dev libx11-dev xvfb openbox xdotool xauth poppler-utils qpdf
  cups-daemon cups-client dbus at-spi2-core python3-gi gir1.2-atspi-2.0 gir1.2-gtk-3.0
  adwaita-qt6"
homebrew="cmake ninja qt little-cms2 cli11 nlohmann-json expat ghostscript"
homebrew_for_tests="googletest poppler qpdf"

fail() {
  echo "$me: $*" >&2
  exit 1
}

# What failed, as one line: the first error in the log, else its last words (a missing command, a refused
# password), and where the rest is. A server that could not be reached is why packages are not found.
fail_with_log() {
  local errors='^E: |^Error|CMake Error|error:|undefined reference|final link failed|cannot find' cause server
  cause=$(grep -m1 -A2 -E "$errors" "$log" || grep -v '^[[:space:]]*$' "$log" | tail -n 1)
  server=$(grep -m1 -A1 '^Err:' "$log")
  cause=$(printf '%s' "${cause:-no reason given}${server:+; $server}" | tr -s '\n ' ' ' | cut -c1-400)
  fail "$1 failed: $cause (all of it: $log)"
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

missing_debian() {
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
  done
}

install_debian() {
  local missing
  missing=$(missing_debian "$@" | tr '\n' ' ')
  [ -n "$missing" ] || return 0
  if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
    fail "these packages are missing and there is no sudo to install them: $missing"
  fi
  echo "$me: installing $missing"
  export DEBIAN_FRONTEND=noninteractive
  as_root apt-get update >"$log" 2>&1 || fail_with_log "updating the package lists"
  # shellcheck disable=SC2086 # a list of words
  as_root apt-get install -y --no-install-recommends $missing >>"$log" 2>&1 || fail_with_log "installing packages"
}

install_homebrew() {
  local package missing=""
  for package in "$@"; do
    brew list --versions "$package" >/dev/null 2>&1 || missing="$missing $package"
  done
  [ -n "$missing" ] || return 0
  echo "$me: installing$missing"
  # shellcheck disable=SC2086
  HOMEBREW_NO_AUTO_UPDATE=1 brew install -q $missing >"$log" 2>&1 || fail_with_log "installing packages"
}

# install_packages [tests]: the packages that building and running need, and those of the tests where asked.
install_packages() {
  local cause
  cause=$(mkdir -p "$build" 2>&1) || fail "cannot make $build: ${cause##*: }"
  cause=$({ : >"$log"; } 2>&1) || fail "cannot write $log: ${cause##*: }"
  # shellcheck disable=SC2086
  if command -v apt-get >/dev/null && command -v dpkg-query >/dev/null; then
    install_debian $tools_debian $libraries_debian $at_run_time_debian ${1:+$for_tests_debian}
  elif [ "$(uname)" = Darwin ]; then
    command -v brew >/dev/null || fail "Homebrew (https://brew.sh) is needed to install: $homebrew"
    install_homebrew $homebrew ${1:+$homebrew_for_tests}
    CMAKE_PREFIX_PATH=$(brew --prefix qt)
    export CMAKE_PREFIX_PATH
  else
    by_hand="; on this system install what Debian calls: $tools_debian $libraries_debian $at_run_time_debian ${1:+$for_tests_debian}"
  fi
}

# A build folder that was copied here from another place would build that place.
forget_foreign_cache() {
  local home
  home=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$build/CMakeCache.txt" 2>/dev/null)
  [ -z "$home" ] || [ "$home" = "$root" ] || rm -rf "$build/CMakeCache.txt" "$build/CMakeFiles"
}

# build_release ON|OFF TARGET...: with or without the tests; all targets where none is named.
build_release() {
  local tests=$1 generator=()
  shift
  forget_foreign_cache
  if [ ! -f "$build/CMakeCache.txt" ]; then
    generator=(-G Ninja -DCMAKE_BUILD_TYPE=Release "-DCHROMALOG_TESTS=$tests")
  elif [ "$tests" = ON ]; then
    generator=(-DCHROMALOG_TESTS=ON) # run leaves the tests as they are
  fi
  cmake -S "$root" -B "$build" ${generator[@]+"${generator[@]}"} >"$log" 2>&1 || fail_with_log "configuring${by_hand:-}"
  local goal=(--target "${@:-all}") jobs
  jobs=$(getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2)
  if ! cmake --build "$build" "${goal[@]}" -- -n 2>/dev/null | grep -q 'no work to do'; then
    echo "$me: building (a few minutes the first time)"
  fi
  cmake --build "$build" "${goal[@]}" -j "$jobs" >"$log" 2>&1 || fail_with_log building
}
