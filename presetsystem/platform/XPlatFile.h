// Files for the preset system, as plain C functions over an opaque handle. Every function takes a null
// handle quietly, so that a failed open turns the rest of a load or save into nothing.
#pragma once

// Opens directory + fileName (the directory ends in "/"): "wb+" to write, "rb+" to read (a read-only file
// does not open for loading). Stores the handle (null on failure) and answers the file's length (0 on
// failure).
long XPlatFileOpen(const char* fileName, const char* directory, void** handle, bool write);
// Reads up to count bytes.
void XPlatFileRead(void* handle, void* buffer, long count);
// Writes count bytes.
void XPlatFileWrite(void* handle, const void* buffer, long count);
void XPlatFileClose(void* handle);
// Splits a path at its last "/": the name after it, the directory up to and including it. A path without
// "/" leaves both as they are.
void XPlatGetFileNameAndDir(const char* fullPath, char* name, char* directory);
