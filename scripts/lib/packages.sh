# Debian packages that building and testing the plug-in needs, and a helper that installs the missing ones.
# Sourced by scripts/run and scripts/test.

SPATARA_BUILD_PACKAGES=(
    cmake g++ make pkg-config clang libclang-rt-14-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    libsndfile1-dev libcairo2-dev
    dpf-source libx11-dev libxext-dev libxcursor-dev libxrandr-dev
    fonts-dejavu-core fontconfig
    groff help2man zlib1g-dev # the manual's pictures are written as PDFs with zlib
    lv2-dev liblilv-dev # the LV2 edition's tests host it through lilv
)
SPATARA_TEST_PACKAGES=(
    xvfb xdotool imagemagick x11-utils zenity sox
    ardour python3 # the plug-in's proof in Ardour, tests/host
    lilv-utils sordi jalv jackd2 # lv2info, lv2_validate (sord_validate is in sordi), an LV2 host and its JACK
    qtractor # its plug-in scanner lists the CLAP edition
)

# What scripts/release-check needs beyond the build: Debian's package checker.
SPATARA_RELEASE_PACKAGES=(lintian sox)

# Installed without their recommended packages: Ardour's would bring a whole desktop audio stack that a
# headless proof does not need.
SPATARA_LEAN_PACKAGES=(ardour lintian)

# ensure_packages PKG...: runs `apt-get update` once and installs what is not installed yet.
ensure_packages() {
    local missing=() lean=()
    local pkg
    for pkg in "$@"; do
        if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed"; then
            if [[ " ${SPATARA_LEAN_PACKAGES[*]} " == *" $pkg "* ]]; then lean+=("$pkg"); else missing+=("$pkg"); fi
        fi
    done
    if [ ${#missing[@]} -eq 0 ] && [ ${#lean[@]} -eq 0 ]; then
        return 0
    fi
    echo "Installing: ${missing[*]} ${lean[*]}"
    local sudo=""
    if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
    $sudo apt-get update
    if [ ${#missing[@]} -gt 0 ]; then
        DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y "${missing[@]}"
    fi
    if [ ${#lean[@]} -gt 0 ]; then
        DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${lean[@]}"
    fi
}
