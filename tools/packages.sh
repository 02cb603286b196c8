# Sourced by run and test: installs those packages of packages.txt that are missing.
# usage: install_packages KIND...
install_packages() {
  local kind wanted=() missing=() name
  for kind in "$@"; do
    while read -r name; do wanted+=("$name"); done < <(awk -v kind="$kind" '$1 == kind { print $2 }' packages.txt)
  done
  for name in "${wanted[@]}"; do
    # A command of that name may have come with another package: npm, for one, is part of some builds of Node.
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || type -P "$name" >/dev/null ||
      missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "Installing: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Run this as root, or install sudo." >&2; exit 1; }
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -q
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}
