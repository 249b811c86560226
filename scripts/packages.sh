# Sourced by the other scripts: installs Debian packages that are missing, as root or with sudo.

# is_installed NAME[:ARCHITECTURE], for this machine's own architecture unless another is named. A package can be there
# once for each architecture, and dpkg-query prints a line for each.
is_installed() {
    local architecture
    architecture=$(dpkg --print-architecture)
    [[ $1 == *:* ]] && architecture=${1#*:}
    dpkg-query -W -f='${db:Status-Status} ${Architecture}\n' "${1%%:*}" 2>/dev/null |
        grep -xE "installed ($architecture|all)" >/dev/null
}

# need_packages NAME[:ARCHITECTURE]...
need_packages() {
    local missing=() foreign=() name
    for name in "$@"; do
        is_installed "$name" && continue
        missing+=("$name")
        [[ $name == *:* ]] && foreign+=("${name#*:}")
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
    for name in "${foreign[@]}"; do
        "${as_root[@]}" dpkg --add-architecture "$name"
    done
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev libedit-dev libsystemd-dev)
test_packages=(git libgtest-dev libgmock-dev qtbase5-dev clang-14 libclang-rt-14-dev clang-format-14 valgrind
    abigail-tools binutils dbus dpkg-dev fakeroot file lintian lld ofono systemd)
# The telephony daemon and its bus, for what runs on the desk.
desk_packages=(ofono dbus tmux util-linux)
# What the QML module and the settings application are built, translated and tested with.
qml_packages=(qt6-declarative-dev qt6-declarative-dev-tools qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
    libgl-dev qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript qml6-module-qtquick
    qml6-module-qtquick-window qml6-module-qtquick-controls qml6-module-qtquick-layouts qml6-module-qtquick-templates
    qml6-module-qttest libqt6svg6 fonts-noto-core fonts-dejavu-core)
# Cross building for ARM phones and running what was built.
arm_packages=(g++-aarch64-linux-gnu g++-arm-linux-gnueabihf qemu-user mmdebstrap)
# What the Debian packages are made with.
deb_packages=(debhelper doxygen dpkg-dev)
