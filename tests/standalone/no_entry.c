/* A module, but no picker: it has no PluginMain. */
int notAPicker(void);
int notAPicker(void) {
    return 1;
}
