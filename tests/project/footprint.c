/*
 * Measures what operations need of stack and heap.
 *
 * usage: footprint PORT
 *
 * Asks the object manager on the port, in a thread whose stack has been painted, and prints a
 * line for each operation:
 *
 *   NAME  STACK  PEAK  RESULT  LEFT
 *
 * STACK: bytes that the operation has written below its caller; PEAK: most bytes of heap that it
 * had at one time, RESULT those that its result keeps, LEFT those that are left when the result has
 * been released.  Heap is counted as malloc_usable_size().
 */
#include <malloc.h>
#include <pthread.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "cim_client.h"

/* ---- The heap: this program's functions take the place of libc's ---- */

void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void __libc_free(void* block);

#define EXPORTED __attribute__((visibility("default")))

static size_t live;
static size_t peak;

static void* taken(void* block) {
  live += malloc_usable_size(block);
  if (live > peak) peak = live;
  return block;
}

EXPORTED void* malloc(size_t size) { return taken(__libc_malloc(size)); }
EXPORTED void* calloc(size_t count, size_t size) { return taken(__libc_calloc(count, size)); }
EXPORTED void* realloc(void* block, size_t size) {
  const size_t before = malloc_usable_size(block);
  void* moved = __libc_realloc(block, size);
  if (moved) live -= before;
  return moved ? taken(moved) : NULL;
}
EXPORTED void free(void* block) {
  live -= malloc_usable_size(block);
  __libc_free(block);
}

/* ---- The operations ---- */

static struct client_Configuration* handle;
static ClassName class_name = {.name = "CIM_Fan"};
static ObjectName object_name;
static InstanceName* fan_name;
static Error* error;

static void* enumerate_instances(void) {
  return EnumerateInstances(handle, &class_name, 0, 1, 0, 0, NULL, &error);
}
static int free_instances(void* instances) { return Free_NamedInstance(instances); }

static void* enumerate_instance_names(void) {
  return EnumerateInstanceNames(handle, &class_name, &error);
}
static int free_names(void* names) { return Free_InstanceName(names); }

static void* get_class(void) { return CIM_GetClass(handle, &class_name, 0, 1, 1, NULL, &error); }
static int free_class(void* found) { return Free_Class(found); }

static void* get_instance(void) { return GetInstance(handle, fan_name, 0, 0, 0, NULL, &error); }
static int free_instance(void* instance) { return Free_Instance(instance); }

static void* associators(void) {
  return Associators(handle, &object_name, NULL, NULL, NULL, NULL, 0, 0, NULL, &error);
}
static int free_objects(void* objects) { return Free_ObjectWithPath(objects); }

struct Operation {
  const char* name;
  void* (*call)(void);
  int (*release)(void* result);
};

static const struct Operation operations[] = {
    {"EnumerateInstances", enumerate_instances, free_instances},
    {"EnumerateInstanceNames", enumerate_instance_names, free_names},
    {"GetInstance", get_instance, free_instance},
    {"CIM_GetClass", get_class, free_class},
    {"Associators", associators, free_objects},
};

/* ---- The stack ---- */

enum { stack_size = 1 << 20, paint = 0xa5 };

static unsigned char stack[stack_size] __attribute__((aligned(4096)));

struct Run {
  const struct Operation* operation;
  size_t stack_used;
  size_t heap_peak;
  size_t heap_of_result;
  size_t heap_left;
  int has_result;
};

static void* run_operation(void* argument) {
  struct Run* run = argument;
  unsigned char* here = __builtin_frame_address(0);
  const size_t before = live;
  peak = live;
  void* result = run->operation->call();
  run->heap_peak = peak - before;
  run->heap_of_result = live - before;
  run->has_result = result && !error;
  run->operation->release(result);
  run->heap_left = live - before;
  const unsigned char* lowest = stack;
  while (*lowest == paint) ++lowest;
  run->stack_used = (size_t)(here - lowest);
  return NULL;
}

static int measure(const struct Operation* operation, int is_shown) {
  struct Run run = {.operation = operation};
  pthread_attr_t attributes;
  pthread_t thread;
  memset(stack, paint, stack_size);
  if (pthread_attr_init(&attributes) != 0 ||
      pthread_attr_setstack(&attributes, stack, stack_size) != 0 ||
      pthread_create(&thread, &attributes, run_operation, &run) != 0)
    return 0;
  pthread_join(thread, NULL);
  pthread_attr_destroy(&attributes);
  if (is_shown)
    printf("%s %zu %zu %zu %zu\n", operation->name, run.stack_used, run.heap_peak,
           run.heap_of_result, run.heap_left);
  return run.has_result;
}

int main(int argc, char* argv[]) {
  if (argc != 2) return 2;
  handle = client_Configuration("127.0.0.1", (uint32_t)atoi(argv[1]), "root/cimv2", 0, "user",
                                "password");
  fan_name = EnumerateInstanceNames(handle, &class_name, &error);
  if (!fan_name) return 1;
  object_name.instanceName = fan_name;
  /* The first round resolves symbols and lets libc fill its buffers. */
  int is_complete = 1;
  for (int round = 0; round < 2; ++round)
    for (size_t i = 0; i < sizeof operations / sizeof operations[0]; ++i)
      is_complete &= measure(&operations[i], round == 1);
  Free_InstanceName(fan_name);
  Free_client_Configuration(handle);
  return is_complete ? 0 : 1;
}
