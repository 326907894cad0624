# SPDX-License-Identifier: MIT
# To be sourced by bash scripts that need Debian packages or quiet commands.
# shellcheck shell=bash

# How long to wait for another package manager.
: "${LOCK_TIMEOUT_SECONDS:=600}"

# require_packages PACKAGE...: installs those of the packages that are missing, with apt-get, as root
# or through sudo. Says so on standard error. Fails when that is not possible.
require_packages() {
  local package missing=()
  for package in "$@"; do
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true) == installed ]] ||
      missing+=("$package")
  done
  ((${#missing[@]} > 0)) || return 0

  echo "Missing packages: ${missing[*]}" >&2
  if ! command -v apt-get >/dev/null; then
    echo "error: there is no apt-get here; install what corresponds to these packages" >&2
    return 1
  fi
  if ((EUID != 0)) && ! command -v sudo >/dev/null; then
    echo "error: neither root nor sudo; as root, run: apt-get install ${missing[*]}" >&2
    return 1
  fi

  echo "Installing them with apt-get ..." >&2
  run_apt_get update -qq &&
    run_apt_get install -qq -y --no-install-recommends "${missing[@]}"
}

# run_apt_get ARGUMENT...: as root. env: sudo does not pass variables on.
run_apt_get() {
  when_unlocked as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C \
    apt-get -o DPkg::Lock::Timeout="$LOCK_TIMEOUT_SECONDS" "$@"
}

# when_unlocked COMMAND...: runs apt-get or dpkg, and shows what it prints only when it fails. Waits
# while another package manager holds a lock: apt-get's own timeout is for one of its locks, not for
# those of `update` and of its downloads, and dpkg has none.
when_unlocked() {
  local output has_said=false deadline=$((SECONDS + LOCK_TIMEOUT_SECONDS))
  until output=$("$@" 2>&1); do
    if ((SECONDS >= deadline)) || ! is_about_locks "$output"; then
      printf '%s\n' "$output" >&2
      return 1
    fi
    $has_said || echo "Waiting until another package manager has finished ..." >&2
    has_said=true
    sleep 1
  done
}

is_about_locks() {
  [[ $1 =~ 'Could not get lock'|'lock was locked by another process' ]]
}

# quietly COMMAND...: shows what the command prints, on standard error, only when it fails.
quietly() {
  local output
  output=$("$@" 2>&1) || {
    printf '%s\n' "$output" >&2
    return 1
  }
}

# as_root COMMAND...: runs the command as root, through sudo where that is needed.
as_root() {
  if ((EUID == 0)); then
    "$@"
  else
    sudo "$@"
  fi
}
