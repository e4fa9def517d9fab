// Files for the preset system, as plain C functions over an opaque handle. Every function takes a null
// handle quietly, so that a failed open turns the rest of a load or save into nothing.
#pragma once

// No preset or bank image comes near this; a larger file is no file of ours and is not opened for reading.
constexpr long kMaxLoadedFileSize = 1024 * 1024;

// Opens directory + fileName (the directory ends in "/"): "wb+" to write, "rb+" to read (a read-only file
// does not open for loading). For reading, only a regular file of at most kMaxLoadedFileSize opens, and
// opening never waits. Stores the handle (null on failure) and answers the file's length (0 on failure).
long XPlatFileOpen(const char* fileName, const char* directory, void** handle, bool write);
// Saves count bytes as the file directory + fileName, keeping what the user set up: a symbolic link stays a
// link and its target is written, hard links stay linked, mode and owner stay. Where the folder allows, the
// data goes to a file beside the old one that replaces it only when complete; a file with other links, or
// in a folder the user may not write, is rewritten in place, read back and put back as it was if that
// fails. A new file gets newFileMode (less the umask). Answers whether the file now holds the data; on false
// the old file is as it was.
bool XPlatFileSave(const char* fileName, const char* directory, const void* data, long count,
                   unsigned newFileMode = 0666);
// Reads up to count bytes.
void XPlatFileRead(void* handle, void* buffer, long count);
// Writes count bytes.
void XPlatFileWrite(void* handle, const void* buffer, long count);
void XPlatFileClose(void* handle);
// Splits a path at its last "/": the name after it, the directory up to and including it. A path without
// "/" leaves both as they are.
void XPlatGetFileNameAndDir(const char* fullPath, char* name, char* directory);
