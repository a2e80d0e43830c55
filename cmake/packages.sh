# Installs the Debian packages that a task needs and that are missing. Sourced by
# ./run and ./test. Usage: need_packages PACKAGE...
need_packages() {
    missing=""
    for package in "$@"; do
        if [ "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" != "install ok installed" ]; then
            missing="$missing $package"
        fi
    done
    [ -z "$missing" ] && return 0
    if ! command -v apt-get >/dev/null; then
        echo "Not a Debian system: please install what these packages hold:$missing" >&2
        return 0
    fi
    as_root=""
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Please install these packages as root:$missing" >&2
            return 1
        fi
        as_root="sudo"
    fi
    echo "Installing the Debian packages that are missing:$missing"
    $as_root apt-get update -qq
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

BUILD_PACKAGES="g++ cmake ninja-build ccache python3 python3-fonttools
    qt6-base-dev libgl-dev qt6-svg-dev libqt6svg6 qt6-image-formats-plugins zlib1g-dev libgtest-dev"
# Other programs that read back what this one writes, and the check of the form.
TEST_PACKAGES="imagemagick giflib-tools qpdf poppler-utils libreoffice-writer-nogui clang-format
    shared-mime-info desktop-file-utils libglib2.0-bin"
