#!/bin/sh
# pkg_config_consumer.sh PREFIX FOLDER VERSION [LIBRARY PROGRAM]: builds a consumer in FOLDER with what
# pkg-config says about a library below PREFIX, once with the shared and once with the static library of
# the address book. The compiler comes from CXX, its language from STANDARD.
set -eu
here=$(dirname "$0")
prefix=$1
folder=$2
version=$3
library=${4-OVAddressBookSDK}
program=$here/consumer/${5-main}.cpp

description=$(find "$prefix" -name OVAddressBookSDK.pc)
PKG_CONFIG_PATH=$(dirname "$description")
export PKG_CONFIG_PATH
library_folder=$(pkg-config --variable=libdir "$library")
[ "$(pkg-config --modversion "$library")" = "$version" ]
mkdir -p "$folder"
if [ "$STANDARD" = 23 ]; then dialect=c++2b; else dialect=c++$STANDARD; fi

# shellcheck disable=SC2046  # one word per flag
$CXX -std="$dialect" "$program" -o "$folder/shared" \
  $(pkg-config --cflags --libs "$library") -Wl,-rpath,"$library_folder"
"$here/run_consumer.sh" "$folder/shared" shared "$version"

# Only the address book is linked statically, with what it needs itself.
# shellcheck disable=SC2046
$CXX -std="$dialect" "$program" -o "$folder/static" \
  $({ pkg-config --cflags --libs "$library" && pkg-config --static --libs OVAddressBookSDK; } |
    sed 's/-lOVAddressBookSDK/-l:libOVAddressBookSDK.a/')
"$here/run_consumer.sh" "$folder/static" static "$version"
