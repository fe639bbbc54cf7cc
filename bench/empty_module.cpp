// A library that holds nothing, to compare the loading of ours with.

extern "C" int EmptyModule() { return 0; }
