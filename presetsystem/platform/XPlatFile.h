// Files for the preset system, as plain C functions over an opaque handle. Every function takes a null
// handle quietly, so that a failed open turns the rest of a load or save into nothing.
#pragma once

// No preset or bank image comes near this; a larger file is no file of ours and is not opened for reading.
constexpr long kMaxLoadedFileSize = 1024 * 1024;

// Opens directory + fileName (the directory ends in "/"): "wb+" to write, "rb+" to read (a read-only file
// does not open for loading). For reading, only a regular file of at most kMaxLoadedFileSize opens, and
// opening never waits. Stores the handle (null on failure) and answers the file's length (0 on failure).
long XPlatFileOpen(const char* fileName, const char* directory, void** handle, bool write);
// Reads up to count bytes.
void XPlatFileRead(void* handle, void* buffer, long count);
// Writes count bytes.
void XPlatFileWrite(void* handle, const void* buffer, long count);
void XPlatFileClose(void* handle);
// Splits a path at its last "/": the name after it, the directory up to and including it. A path without
// "/" leaves both as they are.
void XPlatGetFileNameAndDir(const char* fullPath, char* name, char* directory);
