#!/bin/sh
# abi.sh LIBRARY: the binary interface of LIBRARY is the one in abi/; with OV_STORE_ABI=1, it becomes that one.
# LIBRARY has the debug information of clang: that of g++ calls every `OVRef<T>` "OVRef".
set -eu
library=$1
root=$(dirname "$0")/../..
stored=$root/abi/OVAddressBookSDK.abi.gz
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

abidw --exported-interfaces-only --headers-dir "$root/include" --drop-private-types --no-show-locs \
  --no-comp-dir-path --no-corpus-path --no-architecture --out-file "$folder/present" "$library"
if [ "${OV_STORE_ABI-}" = 1 ]; then
  gzip -9n <"$folder/present" >"$stored"
fi
gzip -dc "$stored" >"$folder/stored"
if ! abidiff --harmless --suppressions "$root/abi/not_ours.abignore" "$folder/stored" "$folder/present"; then
  echo "When this is meant, \`make abi-baseline\` stores the interface again." >&2
  exit 1
fi
