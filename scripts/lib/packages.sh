# SPDX-License-Identifier: MIT
# To be sourced by bash scripts that need Debian packages or quiet commands.
# shellcheck shell=bash

# require_packages PACKAGE...: installs those of the packages that are missing, with apt-get, as
# root or through sudo. Says what it does, on standard error. Fails when that is not possible.
require_packages() {
  local package missing=() as_root=()
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
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "error: neither root nor sudo; as root, run: apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi

  echo "Installing them with apt-get ..." >&2
  # env: sudo does not pass the variable on
  quietly "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
    quietly "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -qq -y --no-install-recommends "${missing[@]}"
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
