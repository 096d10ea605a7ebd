# Which Debian packages the project needs, and how its scripts install what is missing. Sourced, not run.

build_packages=(g++ cmake ninja-build pkg-config libsqlite3-dev zlib1g-dev libgcrypt20-dev libfmt-dev libcli11-dev
  nlohmann-json3-dev)
test_packages=(libgtest-dev libgmock-dev sqlite3 openssl)
bench_packages=(libbenchmark-dev)
check_packages=(clang-14 clang-format-14 clang-tidy-14 libclang-rt-14-dev git)

# Installs those of the named packages that are missing. Without the right to do so it names them and fails.
need_packages() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ "${#missing[@]}" -eq 0 ] && return 0
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if command -v sudo >/dev/null 2>&1 && sudo -n true 2>/dev/null; then
      as_root=(sudo)
    else
      echo "These packages are missing, and installing them needs root or sudo:" >&2
      echo "  apt-get install ${missing[*]}" >&2
      return 1
    fi
  fi
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# With ccache at hand, what was compiled in one checkout is found again in another.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

# Configures a preset once and builds the named targets of it (all without a name).
build_preset() {
  local preset=$1
  shift
  [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >"/tmp/tarvola-configure-$$.log" 2>&1 || {
    cat "/tmp/tarvola-configure-$$.log" >&2
    return 1
  }
  rm -f "/tmp/tarvola-configure-$$.log"
  local target targets=()
  for target in "$@"; do targets+=(--target "$target"); done
  cmake --build --preset "$preset" "${targets[@]}" -- --quiet
}
