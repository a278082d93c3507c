extern "C" int tkgraphics_abi_version() { return 1; }
