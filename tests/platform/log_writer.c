/*
 * Writes log lines as its arguments say, in their order, so that a test can look at what a
 * process with a given environment logs:
 *
 *   init                  rt_log_init()
 *   log=LEVEL=TEXT        one line, with the given level and text
 *   long=BYTES            one line of that many letters
 *   lines=COUNT           that many short lines
 *   threads=COUNT=LINES   that many threads, each of which prepares logging and writes lines
 *   null                  a line without any text; then one with a null argument
 *   errno                 fails with status 2 when logging changes errno
 *   signals               fails with status 3 when logging leaves SIGPIPE pending or blocked
 *   setenv=VALUE          changes the variable from now on
 *   closed                closes standard error
 *   vanish                ends the process at once, with status 0
 *   file-limit=BYTES      files must not grow beyond that many bytes
 *
 * Its syslog() takes the system's place and prints "PRIORITY MESSAGE" on standard output.
 */
#include <errno.h>
#include <pthread.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/resource.h>
#include <unistd.h>

#include "rtlog.h"

#define EXPORTED __attribute__((visibility("default")))

/* Bound to their names by the assembler: the compiler has declarations of its own for them. */
EXPORTED void print_syslog(int priority, const char* format, ...) __asm__("syslog")
    __attribute__((format(printf, 2, 3)));
EXPORTED void print_fortified_syslog(int priority, int flag, const char* format,
                                     ...) __asm__("__syslog_chk")
    __attribute__((format(printf, 3, 4)));

static void print_message(int priority, const char* format, va_list arguments) {
  printf("%d ", priority);
  vprintf(format, arguments);
  printf("\n");
}

void print_syslog(int priority, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  print_message(priority, format, arguments);
  va_end(arguments);
}

/* What syslog() becomes where sources are fortified. */
void print_fortified_syslog(int priority, int flag, const char* format, ...) {
  (void)flag;
  va_list arguments;
  va_start(arguments, format);
  print_message(priority, format, arguments);
  va_end(arguments);
}

static const char* value_of(const char* argument) { return strchr(argument, '=') + 1; }

static int number_of(const char* argument) { return (int)strtol(value_of(argument), NULL, 10); }

static void write_text(int level, const char* text) {
  _rt_log("src/file.c", 42, "MODULE", "category", level, "%s", text);
}

static void write_long(size_t length) {
  char* text = malloc(length + 1);
  if (!text) exit(1);
  for (size_t i = 0; i < length; ++i) text[i] = (char)('a' + i % 26);
  text[length] = '\0';
  write_text(2, text);
  free(text);
}

static void write_lines(int count) {
  for (int i = 0; i < count; ++i)
    _rt_log("src/file.c", i, "MODULE", "category", 2, "line %d of %d", i, count);
}

static void* write_lines_in_thread(void* count) {
  rt_log_init();
  write_lines(*(const int*)count);
  return NULL;
}

static void write_in_threads(int threads, int lines) {
  pthread_t thread[64];
  if (threads > 64) exit(1);
  for (int i = 0; i < threads; ++i)
    if (pthread_create(&thread[i], NULL, write_lines_in_thread, &lines) != 0) exit(1);
  for (int i = 0; i < threads; ++i) pthread_join(thread[i], NULL);
}

static void check_errno(void) {
  errno = ENOTTY;
  rt_log_init();
  write_text(2, "text");
  if (errno != ENOTTY) exit(2);
}

static void check_signals(void) {
  sigset_t set;
  rt_log_init();
  write_text(2, "text");
  sigpending(&set);
  if (sigismember(&set, SIGPIPE)) exit(3);
  pthread_sigmask(SIG_SETMASK, NULL, &set);
  if (sigismember(&set, SIGPIPE)) exit(3);
}

static void limit_files(const char* bytes) {
  const struct rlimit limit = {strtoul(bytes, NULL, 10), RLIM_INFINITY};
  signal(SIGXFSZ, SIG_IGN);
  if (setrlimit(RLIMIT_FSIZE, &limit) != 0) exit(1);
}

static int is(const char* argument, const char* step) {
  const size_t length = strlen(step);
  return strncmp(argument, step, length) == 0 &&
         (argument[length] == '\0' || argument[length] == '=');
}

static void do_step(const char* argument) {
  if (is(argument, "init"))
    rt_log_init();
  else if (is(argument, "log"))
    write_text(number_of(argument), value_of(value_of(argument)));
  else if (is(argument, "long"))
    write_long(strtoul(value_of(argument), NULL, 10));
  else if (is(argument, "lines"))
    write_lines(number_of(argument));
  else if (is(argument, "threads"))
    write_in_threads(number_of(argument), number_of(value_of(argument)));
  else if (is(argument, "null")) {
    const char* volatile nothing = NULL; /* compilers warn of what they see */
    _rt_log(NULL, 0, NULL, NULL, 2, nothing, 0);
    write_text(2, nothing);
  } else if (is(argument, "errno"))
    check_errno();
  else if (is(argument, "signals"))
    check_signals();
  else if (is(argument, "setenv"))
    setenv("CIM_CLIENT_LOG", value_of(argument), 1);
  else if (is(argument, "closed"))
    close(STDERR_FILENO);
  else if (is(argument, "vanish"))
    _exit(0);
  else if (is(argument, "file-limit"))
    limit_files(value_of(argument));
  else
    exit(1);
}

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) do_step(argv[i]);
  return 0;
}
