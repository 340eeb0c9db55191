#pragma once
// File steps whose faults are gathered and reported once at the end of a command: each keeps
// the first fault of its run in fault and leaves a later one out, since the first tells the
// cause.
#include "base/FileFault.h"

namespace FileSteps {
// The fault of a file at path that is not there: the file (53) or its whole folder (76).
FileFault Missing(const QString &path);
// The fault of a failed change to a file at path: a missing folder (76), a folder the user
// may not change (70), else the fallback.
FileFault Refused(const QString &path, qint16 fallback);
// Keeps raised in fault unless fault already holds one.
void Keep(FileFault &fault, const FileFault &raised);
// Deletes the file at path; a file that is not there is a fault too.
void Remove(const QString &path, FileFault &fault);
// Copies the file at from to to, which must not exist.
void Copy(const QString &from, const QString &to, FileFault &fault);
} // namespace FileSteps
