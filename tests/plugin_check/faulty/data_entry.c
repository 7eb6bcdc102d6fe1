/* The entry is a number. */
__attribute__((visibility("default"))) int PluginMain = 3;
