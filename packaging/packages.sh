# The Debian packages that this project needs, and installing those that are missing. To be sourced by bash.

# To build the program and the practice network and to run the tests.
build_packages=(
  g++ cmake ninja-build pkg-config ccache python3 git ca-certificates
  qt6-base-dev qt6-qpa-plugins nlohmann-json3-dev libsqlite3-dev libcpp-httplib-dev libgtest-dev libbenchmark-dev
  fonts-dejavu-core
)

# To hear the program: its sounds go through the system's own player.
run_packages=(alsa-utils)

# To check how the code is written, on every test run; and what `./test --full` needs beyond it.
check_packages=(clang-format-14 xvfb xauth)
full_packages=(clang-16 clang-tidy-16 libclang-rt-16-dev)

# To look at the window without a display: ./bench.
bench_packages=(xvfb)

# To try the program against web servers and a proxy that others wrote: tests/real_servers/run.
server_packages=(nginx-light libnginx-mod-http-echo tinyproxy openssl xvfb xdotool)

# Installs the named packages that are missing, as root or with sudo. Does nothing when all are there.
install_missing() {
  local installed package missing=() become_root=()
  installed=" $(dpkg-query -W -f='${Package}:${db:Status-Status} ' "$@" 2>/dev/null || true)"
  for package in "$@"; do
    [[ $installed == *" $package:installed "* ]] || missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then return; fi

  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing, and installing them needs root or sudo: ${missing[*]}" >&2
      return 1
    fi
    become_root=(sudo)
  fi
  echo "Installing ${missing[*]}" >&2
  "${become_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q update >&2
  "${become_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -q install -y --no-install-recommends "${missing[@]}" >&2
}
