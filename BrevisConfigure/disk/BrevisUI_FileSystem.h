// The system calls through which files are changed, each behind a virtual operation of its own, so that a test can let
// any one of them fail. As the calls do, all give -1 and set errno on failure.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <string>
#include <system_error>

namespace BrevisUI {

class FileSystem {
public:
    virtual ~FileSystem() = default;

    virtual int open(const std::string& path, int flags, mode_t mode);
    virtual int close(int file);
    virtual ssize_t read(int file, char* buffer, std::size_t size);
    virtual ssize_t write(int file, const char* bytes, std::size_t size);
    // Makes sure that there is room for a file of this size. A system that can't tell says yes.
    virtual int allocate(int file, off_t size);
    virtual int truncate(int file, off_t size);
    virtual off_t seek(int file, off_t place);
    virtual int sync(int file);
    // All that was written to the file system that the file is on.
    virtual int syncAll(int file);
    // Fails with EWOULDBLOCK if another process holds the lock, which ends with the file's closing.
    virtual int lock(int file);

    virtual int status(int file, struct stat& status);
    virtual int status(const std::string& path, struct stat& status);
    virtual int mayWrite(const std::string& path);
    virtual int changeOwner(int file, uid_t owner, gid_t group);
    virtual int changeMode(int file, mode_t mode);

    // Extended attributes, access control lists among them.
    virtual ssize_t listAttributes(int file, char* names, std::size_t size);
    virtual ssize_t attribute(int file, const char* name, char* value, std::size_t size);
    virtual int setAttribute(int file, const char* name, const char* value, std::size_t size);
    virtual int removeAttribute(int file, const char* name);

    virtual int rename(const std::string& from, const std::string& to);
    virtual int remove(const std::string& path);
    virtual int makeDirectory(const std::string& path);
    virtual int removeDirectory(const std::string& path);
};

// What the call that has just failed tells.
inline std::error_code lastError() { return {errno, std::generic_category()}; }

}  // namespace BrevisUI
