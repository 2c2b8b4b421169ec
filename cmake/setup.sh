# Sourced by the root's commands: installs what they need on Debian 12, if it is missing.

packages=(
    git cmake ninja-build make g++ python3
    clang clang-format clang-tidy libclang-rt-14-dev
    g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools
    libwine-dev libwine wine wine64 fonts-wine fonts-liberation
    googletest nlohmann-json3-dev chromium-headless-shell xvfb xdotool imagemagick
)

say() { printf '== %s\n' "$*"; }

as_root() { if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi; }

install_packages() {
    local missing=() package
    for package in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    say "installing Debian packages: ${missing[*]}"
    as_root apt-get update -q
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}
