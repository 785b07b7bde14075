/**
 * @file rtlog.h
 * @brief The logging library that the CIM client writes to, librtlog.so.1.
 *
 * Silent unless asked: nothing is written anywhere until the environment variable
 * CIM_CLIENT_LOG says where to and from which level.
 *
 *     CIM_CLIENT_LOG = TARGET[:LEVEL]
 *
 *     TARGET   stderr                            standard error
 *              syslog                            the system log, one message per line of
 *                                                text, long lines in parts
 *              file=PATH[,size=SIZE][,keep=N]    a file, made with mode 0600 if it is new,
 *                                                and appended to
 *     LEVEL    off, error, warning, info, debug or trace; info when it is left out
 *     SIZE     bytes, or with the suffix K or M: a file that would grow beyond it is set
 *              aside first. 1M when left out; from 4K to 1024M
 *     N        how many files set aside are kept, 0 to 100: /var/log/cim.log becomes
 *              /var/log/cim.1.log, that one cim.2.log, and so on. 3 when left out
 *
 *     CIM_CLIENT_LOG=stderr:debug
 *     CIM_CLIENT_LOG=syslog
 *     CIM_CLIENT_LOG=file=/var/log/cim.log,size=512K,keep=5:info
 *
 * A value that cannot be understood, or a file that cannot be opened, is said once on
 * standard error, and nothing is logged. Programs with more rights than their caller (setuid
 * and the like) do not log: the variable is their caller's. A process that rotates a file
 * needs it for itself.
 *
 * Levels are numbers in the calls and names in the variable: 0 error, 1 warning, 2 info,
 * 3 debug, 4 trace; lower numbers count as 0, higher ones as 4. The client passes 2.
 *
 * A line holds time, process, level, module/category, place, and the message, which keeps
 * its line breaks and is never cut:
 *
 *     2024-02-29T13:05:59.123+01:00 [4711] info CIMCLIENT/network src/x.c:295: Request: ...
 *
 * Threads: both functions may be called from any thread; lines do not mix. They keep errno,
 * and a reader of the log that has gone away does not end the process (SIGPIPE).
 *
 * A device's own logging library takes this one's place as it is: same soname, same two
 * functions. The header compiles as C99 and as C++11.
 */
#ifndef RTLOG_H
#define RTLOG_H

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define RTLOG_API __attribute__((visibility("default")))
#define RTLOG_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define RTLOG_API
#define RTLOG_PRINTF(text, first)
#endif

/**
 * Prepares logging. Reads CIM_CLIENT_LOG the first time; every later call costs one test, so
 * it may be called once per request.
 */
RTLOG_API void rt_log_init(void);

/**
 * Writes one line, if logging is on and its level is asked for. Without an rt_log_init()
 * before it, nothing is written.
 *
 * @param sourceFile  source file of the caller, printed as it is
 * @param line        its line there
 * @param module      part of the system, such as "CIMCLIENT"
 * @param category    what the line is about, such as "network"
 * @param level       0 error to 4 trace, see above
 * @param format      printf format of the message, followed by its arguments
 *
 * A null text, the format included, is written as "(null)". Texts are copied: none need
 * outlive the call. A line for which memory runs out, or that the target does not take, is
 * dropped.
 */
RTLOG_API void _rt_log(const char* sourceFile, int line, const char* module, const char* category,
                       int level, const char* format, ...) RTLOG_PRINTF(6, 7);

#ifdef __cplusplus
}
#endif

#endif /* RTLOG_H */
