# Sourced by the other scripts: installs Debian packages that are missing, as root or with sudo.

# need_packages NAME...
need_packages() {
    local missing=() name
    for name in "$@"; do
        if [[ $(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null) != installed ]]; then
            missing+=("$name")
        fi
    done
    ((${#missing[@]} == 0)) && return
    local as_root=()
    if ((EUID != 0)); then
        command -v sudo >/dev/null || {
            echo "error: these packages are missing and there is no sudo to install them: ${missing[*]}" >&2
            exit 1
        }
        as_root=(sudo)
    fi
    echo "== Installing ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev libsqlite3-dev libedit-dev)
test_packages=(git libgtest-dev libgmock-dev qtbase5-dev clang-14 libclang-rt-14-dev clang-format-14 valgrind
    abigail-tools binutils dpkg-dev file)
