#!/bin/sh
# pkg_config_consumer.sh PREFIX FOLDER VERSION: builds the consumer in FOLDER with what pkg-config
# says about the library below PREFIX, once with the shared and once with the static library. The
# compiler comes from CXX, its language from STANDARD.
set -eu
here=$(dirname "$0")
prefix=$1
folder=$2
version=$3

description=$(find "$prefix" -name OVAddressBookSDK.pc)
PKG_CONFIG_PATH=$(dirname "$description")
export PKG_CONFIG_PATH
library_folder=$(pkg-config --variable=libdir OVAddressBookSDK)
[ "$(pkg-config --modversion OVAddressBookSDK)" = "$version" ]
mkdir -p "$folder"
if [ "$STANDARD" = 23 ]; then dialect=c++2b; else dialect=c++$STANDARD; fi

# shellcheck disable=SC2046  # one word per flag
$CXX -std="$dialect" "$here/consumer/main.cpp" -o "$folder/shared" \
  $(pkg-config --cflags --libs OVAddressBookSDK) -Wl,-rpath,"$library_folder"
"$here/run_consumer.sh" "$folder/shared" shared "$version"

# shellcheck disable=SC2046
$CXX -std="$dialect" "$here/consumer/main.cpp" -o "$folder/static" \
  $(pkg-config --static --cflags --libs OVAddressBookSDK |
    sed 's/-lOVAddressBookSDK/-l:libOVAddressBookSDK.a/')
"$here/run_consumer.sh" "$folder/static" static "$version"
