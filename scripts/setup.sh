# Installs missing Debian packages that the project needs. To be sourced, with the names of packages
# that are needed beyond the build itself.

packages=(cmake g++ ninja-build libcli11-dev libgtest-dev nlohmann-json3-dev "$@")

as_root=()
[ "$(id -u)" = 0 ] || as_root=(sudo)

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
    missing+=("$package")
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
