// What tessik-find does differently on each system: the terminal, Ctrl-C, the full path of what
// the user wrote, whether an entry can be read, and the steps of replacing a file by a whole new
// one. One source file a system (find_system_posix.cpp, find_system_win32.cpp); the build picks
// the one of the platform backend. Everything else is the same code on every system.
#ifndef TESSIK_EXAMPLES_FIND_SYSTEM_H
#define TESSIK_EXAMPLES_FIND_SYSTEM_H

#include <cstdio>
#include <string>

// ---- The terminal ----
// True when `stream` (stdout or stderr) is a terminal that takes the escape sequences of the
// progress view.
bool IsTerminal(std::FILE* stream);
// The width of the terminal stderr shows on; 80 when it tells none.
unsigned TerminalWidth();

// ---- Ctrl-C while a search runs ----
// The handler only notes the request: the listing is told (SetAbort) by the change callbacks of
// its controls, outside the handler, because SetAbort also sets the status window's text, which
// takes the control's lock. The bar changes at every entry, so the search stops at the next
// entry (after the content of the current file). A second Ctrl-C ends the program.
void CatchInterrupt();   // from now on Ctrl-C is noted instead of ending the program
void ReleaseInterrupt(); // Ctrl-C ends the program again
bool InterruptRequested();

// ---- Paths ----
// A path as the user wrote it (POSIX or Windows form, absolute or relative to the current
// directory) made full, without a look at the file system: in the form the system's own calls
// take, or in the library's form. (A search changes the current directory: file names are made
// full before it.)
std::string FullPath(std::string const& written);
std::string FullLibraryPath(std::string const& written);
// The full path, in the library's form, of the directory `written` leads to (a link to a
// directory at its target). False with the reason in `error` when it is missing, is no
// directory or cannot be reached.
bool DirectoryToSearch(std::string const& written, std::string& libraryPath, std::string& error);

// ---- Files ----
// True when the entry at `path` (the library's form) can be read: a directory listed and
// entered, a file opened; as the process's own rights allow. Else false with the reason.
bool CanRead(std::string const& path, bool directory, std::string& reason);
// True when `file` (as FullPath gives it, or as written) exists and is no directory.
bool IsFile(std::string const& file, std::string& error);
// True when `file` can be made: its directory exists and new files can be written in it.
// Checked before a search, so a search is not spent on a listing that cannot be saved.
bool CanSave(std::string const& file, std::string& error);
// A new empty file beside `file`, with a name no other file has, for the whole new content.
bool NewFileBeside(std::string const& file, std::string& temporary, std::string& error);
// True when what was written to `file` has reached the disk.
bool MakeDurable(std::string const& file);
// Puts `temporary` in the place of `file` in one step: a reader sees the old file or the new one.
bool PutInPlace(std::string const& temporary, std::string const& file, std::string& error);

#endif
