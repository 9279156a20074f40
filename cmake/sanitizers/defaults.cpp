// SPDX-License-Identifier: GPL-3.0-or-later
// What the sanitizers are told in every program of a build with them. Libraries of the system are not instrumented: their locks
// are invisible to ThreadSanitizer, and what they keep until the end counts as lost.

extern "C" {

const char *__tsan_default_options();
const char *__tsan_default_suppressions();
const char *__asan_default_options();
const char *__lsan_default_suppressions();
const char *__ubsan_default_options();

__attribute__((visibility("default"), used)) const char *__tsan_default_options()
{
    return "ignore_noninstrumented_modules=1:halt_on_error=0:second_deadlock_stack=1:history_size=4";
}

// Only functions that hand objects between threads behind locks that cannot be seen, never a whole library: each stack of
// ours has the event loop at its end.
__attribute__((visibility("default"), used)) const char *__tsan_default_suppressions()
{
    return "called_from_lib:libglib-2.0.so\n"
           "called_from_lib:libQt6Core.so\n"
           "called_from_lib:libQt6Network.so\n"
           "called_from_lib:libQt6Multimedia.so\n"
           "called_from_lib:libgallium\n"
           "called_from_lib:libGLX_mesa.so\n"
           "race:QWaitCondition::~QWaitCondition\n"
           "race:QObject::moveToThread\n"
           "race:QCoreApplication::postEvent\n"
           "race:QThread::start\n";
}

__attribute__((visibility("default"), used)) const char *__asan_default_options()
{
    return "detect_stack_use_after_return=1:strict_string_checks=1:check_initialization_order=1";
}

__attribute__((visibility("default"), used)) const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n"
           "leak:libgallium\n"
           "leak:libGLX_mesa.so\n"
           "leak:libEGL_mesa.so\n"
           "leak:libLLVM\n"
           "leak:libvulkan_lvp.so\n"
           "leak:libgstreamer-1.0.so\n"
           "leak:libglib-2.0.so\n"
           "leak:libdbus-1.so\n"
           "leak:libxcb.so\n"
           "leak:libX11.so\n";
}

__attribute__((visibility("default"), used)) const char *__ubsan_default_options()
{
    return "print_stacktrace=1:halt_on_error=1";
}
}
