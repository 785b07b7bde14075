/* What libc tells a program that has more rights than who called it: no variable is set. */
#include <stddef.h>

char* secure_getenv(const char* name);
char* secure_getenv(const char* name) {
  (void)name;
  return NULL;
}
