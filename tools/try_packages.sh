#!/usr/bin/env bash
# Tries the packages of tools/package.sh as people will meet them, each in a root of its own with nothing but the base
# of Debian 12: the Debian package is installed, started by a fresh account, used, put on once more and removed; the
# archive runs where there is no Qt, at two places, and from a stick that cannot be written. Takes root, since roots are
# made and mounts are tried; all of it stays in build/try, and no mount and no process outlives the script.
#
# usage: tools/try_packages.sh [installed] [portable]       MIRROR=... another mirror of Debian
#                                                           CA_CERTIFICATES=... a file of certificates that it needs
set -euo pipefail
cd "$(dirname "$0")/.."
[ "$(id -u)" -eq 0 ] || { echo "Run this as root: it makes roots of a system." >&2; exit 1; }
if [ -z "${TRY_PACKAGES_INSIDE:-}" ]; then
  . tools/packages.sh
  install_packages package
  TRY_PACKAGES_INSIDE=1 exec unshare --mount --pid --fork --kill-child --mount-proc "$PWD/tools/try_packages.sh" "$@"
fi

packages=$PWD/build/packages
place=$PWD/build/try
user=anna
mkdir -p "$place/debs"

say() { printf '\n== %s\n' "$*"; }
fail() { printf 'FAILED: %s\n' "$*" >&2; exit 1; }
expect() { [ "$2" = "$3" ] || fail "$1: \"$2\" instead of \"$3\""; }

# -- Roots

# Everything in a root is done with an environment of its own, and nothing of this machine's.
in_root() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root "$@"; }
as_user() {
  chroot --userspec="$user:$user" "$root" env -i PATH=/usr/bin:/bin LC_ALL=C.UTF-8 HOME="/home/$user" USER="$user" "$@"
}
install_in_root() { in_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@" >"$root.log" 2>&1 ||
  { tail -20 "$root.log" >&2; fail "apt-get install $*"; }; }

make_base() {
  [ -e "$place/base.made" ] && return
  say "Making the base of Debian 12"
  rm -rf "$place/base"
  debootstrap --variant=minbase bookworm "$place/base" ${MIRROR:+"$MIRROR"} >"$place/base.log" ||
    { tail -20 "$place/base.log" >&2; fail "debootstrap"; }
  if [ -n "${CA_CERTIFICATES:-}" ]; then
    install -D -m 644 "$CA_CERTIFICATES" "$place/base/etc/ssl/certs/mirror.crt"
    echo 'Acquire::https::CAInfo "/etc/ssl/certs/mirror.crt";' >"$place/base/etc/apt/apt.conf.d/90mirror"
  fi
  touch "$place/base.made"
}

# A root that is as bare as the base; what apt fetches is kept for the next one.
make_root() {
  root=$place/$1
  rm -rf "$root"
  cp -a "$place/base" "$root"
  mount -t proc proc "$root/proc"
  mount --bind /dev "$root/dev"
  mount -t tmpfs tmpfs "$root/run"
  mkdir -p "$root/tmp/.X11-unix" "$root/var/cache/apt/archives"
  mount --bind "$x_sockets" "$root/tmp/.X11-unix"
  mount --bind "$place/debs" "$root/var/cache/apt/archives"
  in_root apt-get update -q >"$root.log" 2>&1 || { tail -20 "$root.log" >&2; fail "apt-get update"; }
}

remove_root() {
  umount --recursive "$root"/{proc,dev,run,tmp/.X11-unix,var/cache/apt/archives}
  rm -rf --one-file-system "$root"
}

# -- The screen, which is this machine's, so that the roots stay bare

start_screen() {
  x_sockets=/tmp/.X11-unix
  mkdir -p "$x_sockets"
  # Where the sockets of other screens of this machine are not seen.
  mount -t tmpfs -o mode=1777 tmpfs "$x_sockets"
  exec 3>"$place/display"
  Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp -ac >"$place/screen.log" 2>&1 &
  exec 3>&-
  await 20 test -s "$place/display"
  DISPLAY=:$(cat "$place/display")
  export DISPLAY
  openbox >"$place/openbox.log" 2>&1 &
}

# await SECONDS COMMAND...: whether it succeeds before that.
await() {
  local until=$((SECONDS + $1))
  shift
  until "$@" >/dev/null 2>&1; do
    [ "$SECONDS" -lt "$until" ] || return 1
    read -rt 0.1 <> <(:) || true
  done
}

windows() { xdotool search --onlyvisible --class '^vorlina$' 2>/dev/null || true; }
titles() { for window in $(windows); do xdotool getwindowname "$window" || true; done | sort -u; }
shows() { titles | grep -qx -- "$1"; }
ended() { ! kill -0 "$1" 2>/dev/null; }
shows_only() { [ "$(titles)" = "$1" ]; }

# press TITLE KEY...: as the user does at the window of that title.
press() {
  xdotool search --onlyvisible --name "^$1\$" windowfocus --sync
  shift
  xdotool key "$@"
}

main_window="Vorlina - Catalogs"
tour="Tour"
help="Vorlina Help"

# start_and_close FIRST|AGAIN PROGRAM: starts the program as the user does, with the tour at the first start and nothing
# but the main window at later ones, looks into the help, and closes the main window.
start_and_close() {
  local which=$1 code=0
  as_user env DISPLAY="$DISPLAY" "$2" >"$root.program.log" 2>&1 &
  local program=$!
  if [ "$which" = FIRST ]; then
    await 60 shows_only "$tour" || fail "the tour does not come; there are: $(titles)"
    press "$tour" Escape
  fi
  await 60 shows_only "$main_window" || fail "the main window is not alone; there are: $(titles)"
  press "$main_window" F1
  await 60 shows "$help" || fail "the help does not come; there are: $(titles)"
  press "$help" Escape
  await 20 shows_only "$main_window" || fail "windows that nobody expects: $(titles)"
  # A box that comes only now would keep the window from closing.
  press "$main_window" alt+F4
  await 20 ended "$program" || fail "the program does not end; its windows: $(titles)"
  wait "$program" || code=$?
  expect "the program's end ($(cat "$root.program.log"))" "$code" 0
  # Such as a plug-in that is delivered and cannot be listed.
  expect "what the program passed over" "$(grep '^vorlina' "$root.program.log" || true)" ""
}

# -- What is looked at in both

# batch ARGUMENTS...: the companion, by the user.
batch() { as_user "$home/vorlina-batch" "$@" || fail "vorlina-batch $*"; }
folder_in_use() { batch catalogs --json | sed 's/.*"folder":"\([^"]*\)".*/\1/'; }
# What a library needs is also looked for where the program that loads it says.
libraries_are_there() {
  local missing
  # shellcheck disable=SC2016  # expanded in the root
  missing=$(in_root sh -c 'ldd "$1/Vorlina" "$1/vorlina-batch" "$1/PluginKit/make_package"
    find "$1" -name "*.so*" -exec env LD_LIBRARY_PATH="$1/lib" ldd {} +' sh "$home" | grep 'not found' || true)
  expect "libraries that are missing" "$missing" ""
}
publishes() {
  local site=/home/$user/site-$1 pictures
  batch publish --catalog "$1" --plugin VLHTML.HTML --to "$site" >/dev/null
  pictures=$(find "$root$site" -name '*.jpg' | wc -l)
  [ -s "$root$site/index.html" ] && [ "$pictures" -gt 30 ] || fail "the site of catalog $1 has $pictures pictures"
}
work_in() { (cd "$1" && sha256sum Catalog.db Images/*); }
sums() { (cd "$1" && find . -type f -exec sha256sum {} + | sort -k 2); }

# -- The Debian package

files_outside_of_homes() {
  (cd "$root" && find . -xdev \( -path ./home -o -path ./root -o -path ./var/lib/apt -o -path ./var/lib/dpkg -o -path ./var/cache -o -path ./var/log -o -path ./tmp \
    -o -path ./etc -o -path ./var/lib/systemd \) -prune -o -print | sort)
}

try_installed() {
  local deb data before
  deb=$(echo "$packages"/vorlina_*.deb)
  make_root installed
  home=/usr/lib/vorlina
  data=/home/$user/.local/share/Norsel/Vorlina

  say "The Debian package: installing"
  before=$(files_outside_of_homes)
  in_root useradd --create-home "$user"
  cp "$deb" "$root/root/vorlina.deb"
  install_in_root /root/vorlina.deb
  libraries_are_there

  say "First start by a fresh account, and the second one"
  start_and_close FIRST /usr/bin/vorlina
  expect "the folder in use" "$(folder_in_use)" "$data"
  start_and_close AGAIN /usr/bin/vorlina

  say "Publishing, checking, backing up"
  publishes 109
  publishes 110
  batch check >/dev/null
  batch clone --catalog 109 >/dev/null
  batch backup "/home/$user/catalogs.zip" >/dev/null

  say "Root has a folder of its own too, and the program's stays as it was delivered"
  expect "the folder of root" "$(in_root vorlina-batch catalogs --json | sed 's/.*"folder":"\([^"]*\)".*/\1/')" /root/.local/share/Norsel/Vorlina
  expect "files that are not as they were delivered" "$(in_root dpkg --verify vorlina)" ""

  say "The type of plug-in packages"
  install_in_root shared-mime-info libglib2.0-bin
  in_root sh -c 'cd /tmp && printf "PK\003\004" >X.vpk'
  expect "the type of a package" "$(in_root gio info -a standard::content-type /tmp/X.vpk | sed -n 's/.*content-type: //p')" application/x-vorlina-plugin
  in_root rm /tmp/X.vpk

  say "Installing once more, and removing"
  local work
  work=$(sums "$root$data")
  install_in_root --reinstall /root/vorlina.deb
  start_and_close AGAIN /usr/bin/vorlina
  in_root env DEBIAN_FRONTEND=noninteractive apt-get purge -y -q vorlina >"$root.log" 2>&1
  in_root env DEBIAN_FRONTEND=noninteractive apt-get purge -y -q shared-mime-info libglib2.0-bin >>"$root.log" 2>&1
  in_root env DEBIAN_FRONTEND=noninteractive apt-get autoremove -y -q --purge >>"$root.log" 2>&1
  expect "the user's catalogs" "$(sums "$root$data")" "$work"
  expect "files that came or went" "$(diff <(echo "$before") <(files_outside_of_homes) || true)" ""
  expect "files that bear the program's name" "$(find "$root" -xdev -iname '*vorlina*' -not -path "$root/home/*" -not -path "$root/root/*" -not -path "$root/var/log/*")" ""
  remove_root
}

# -- The portable archive

try_portable() {
  local archive stick=/media/stick elsewhere=/mnt/elsewhere
  archive=$(echo "$packages"/Vorlina-*.tar.gz)
  make_root portable
  say "The portable archive: a desktop without Qt"
  # What every desktop has.
  install_in_root libegl1 libglx0 libopengl0 libx11-6 libx11-xcb1 libxcb1 libsm6 libice6 libfontconfig1 libfreetype6 \
    libharfbuzz0b libglib2.0-0 libdbus-1-3 xkb-data fonts-dejavu-core
  expect "packages of Qt" "$(in_root dpkg-query -W -f '${Package}\n' | grep -i qt || true)" ""
  in_root useradd --create-home "$user"
  mkdir -p "$root$stick" "$root$elsewhere"
  mount -t tmpfs -o mode=777 tmpfs "$root$stick"
  as_user tar -xzf - -C "$stick" <"$archive"
  expect "links, which a stick may not know" "$(find "$root$stick" -type l)" ""
  home=$stick/Vorlina
  libraries_are_there

  say "First start from the stick, and the second one"
  start_and_close FIRST "$home/Vorlina"
  expect "the folder in use" "$(folder_in_use)" "$home"
  start_and_close AGAIN "$home/Vorlina"
  batch check >/dev/null

  say "The archive is unpacked once more over the folder in use"
  local work
  batch clone --catalog 109 >/dev/null
  batch delete --catalog 110 --yes >/dev/null
  work=$(work_in "$root$home")
  as_user tar -xzf - -C "$stick" <"$archive"
  batch check >/dev/null
  expect "the user's catalogs and pictures" "$(work_in "$root$home")" "$work"

  say "The stick is mounted elsewhere"
  mount --move "$root$stick" "$root$elsewhere"
  home=$elsewhere/Vorlina
  expect "the folder in use" "$(folder_in_use)" "$home"
  batch check >/dev/null
  publishes 109
  publishes 111
  start_and_close AGAIN "$home/Vorlina"
  expect "data in the user's own folder" "$(find "$root/home/$user/.local" -name 'Catalog.db' 2>/dev/null)" ""

  say "The stick cannot be written"
  mount -o remount,ro "$root$elsewhere"
  expect "the folder in use" "$(folder_in_use)" "/home/$user/.local/share/Norsel/Vorlina"
  batch check >/dev/null
  publishes 111
  start_and_close AGAIN "$home/Vorlina"
  umount "$root$elsewhere"
  remove_root
}

make_base
start_screen
for kind in "${@:-installed portable}"; do
  for one in $kind; do "try_$one"; done
done
say "The packages stand"
