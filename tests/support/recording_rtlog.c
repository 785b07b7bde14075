/*
 * A second librtlog.so.1, which takes the other one's place (LD_LIBRARY_PATH) and appends its
 * calls to the file that the environment variable RECORDED_LOG names.  One line per call,
 * fields between tabs:
 *
 *   rt_log_init
 *   _rt_log  SOURCEFILE  LINE  MODULE  CATEGORY  LEVEL  FORMAT  MESSAGE
 *
 * Backslash, tab and line break within a field are written as \\, \t and \n, null as (null).
 * Without the variable nothing is recorded.
 */
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>

#include "rtlog.h"

static FILE* open_record(void) {
  const char* path = getenv("RECORDED_LOG");
  return path ? fopen(path, "a") : NULL;
}

static void write_field(FILE* record, const char* text) {
  fputc('\t', record);
  for (const char* c = text ? text : "(null)"; *c; ++c) {
    if (*c == '\\')
      fputs("\\\\", record);
    else if (*c == '\t')
      fputs("\\t", record);
    else if (*c == '\n')
      fputs("\\n", record);
    else
      fputc(*c, record);
  }
}

/* The message on the heap; null when it cannot be made. */
static char* format_message(const char* format, va_list arguments) {
  va_list measured;
  va_copy(measured, arguments);
  const int length = vsnprintf(NULL, 0, format, measured);
  va_end(measured);
  if (length < 0) return NULL;
  char* message = malloc((size_t)length + 1);
  if (message) vsnprintf(message, (size_t)length + 1, format, arguments);
  return message;
}

void rt_log_init(void) {
  FILE* record = open_record();
  if (!record) return;
  fputs("rt_log_init\n", record);
  fclose(record);
}

/* NOLINTNEXTLINE(bugprone-reserved-identifier): the interface's name */
void _rt_log(const char* sourceFile, int line, const char* module, const char* category, int level,
             const char* format, ...) {
  FILE* record = open_record();
  if (!record) return;

  va_list arguments;
  va_start(arguments, format);
  char* message = format ? format_message(format, arguments) : NULL;
  va_end(arguments);

  fputs("_rt_log", record);
  write_field(record, sourceFile);
  fprintf(record, "\t%d", line);
  write_field(record, module);
  write_field(record, category);
  fprintf(record, "\t%d", level);
  write_field(record, format);
  write_field(record, message);
  fputc('\n', record);
  free(message);
  fclose(record);
}
