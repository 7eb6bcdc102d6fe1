/* Read by the leak sanitizer: what others allocate once a process and never free. */
#define READ_BY_SANITIZER __attribute__((visibility("default")))

READ_BY_SANITIZER const char* __lsan_default_suppressions(void);
const char* __lsan_default_suppressions(void) {
    return "leak:libdbus-1.so\n"; /* its table of connections, 1 kB */
}

READ_BY_SANITIZER const char* __lsan_default_options(void);
const char* __lsan_default_options(void) {
    return "print_suppressions=0"; /* standard error is compared */
}
