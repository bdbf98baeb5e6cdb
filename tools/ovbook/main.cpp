#include "standard_streams.h"

int main(int argc, char** argv) { return ovbook::runOnStandardStreams(argc, argv); }
