// The calls of a Linux system.
#include "BrevisUI_FileSystem.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdio>

namespace BrevisUI {

namespace {

// Repeats a call that a signal has interrupted.
template <class Call>
auto persistently(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

}  // namespace

int FileSystem::open(const std::string& path, int flags, mode_t mode) {
    return persistently([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); });
}

int FileSystem::close(int file) { return ::close(file); }

ssize_t FileSystem::read(int file, char* buffer, std::size_t size) {
    return persistently([&] { return ::read(file, buffer, size); });
}

ssize_t FileSystem::write(int file, const char* bytes, std::size_t size) {
    return persistently([&] { return ::write(file, bytes, size); });
}

int FileSystem::allocate(int file, off_t size) {
    const int result = persistently([&] { return ::fallocate(file, 0, 0, size); });
    return result == -1 && (errno == EOPNOTSUPP || errno == ENOSYS) ? 0 : result;
}

int FileSystem::truncate(int file, off_t size) {
    return persistently([&] { return ::ftruncate(file, size); });
}

off_t FileSystem::seek(int file, off_t place) { return ::lseek(file, place, SEEK_SET); }

int FileSystem::sync(int file) {
    return persistently([&] { return ::fsync(file); });
}

int FileSystem::syncAll(int file) { return ::syncfs(file); }

int FileSystem::lock(int file) { return ::flock(file, LOCK_EX | LOCK_NB); }

int FileSystem::status(int file, struct stat& status) { return ::fstat(file, &status); }

int FileSystem::status(const std::string& path, struct stat& status) { return ::stat(path.c_str(), &status); }

int FileSystem::mayWrite(const std::string& path) { return ::access(path.c_str(), W_OK); }

int FileSystem::changeOwner(int file, uid_t owner, gid_t group) { return ::fchown(file, owner, group); }

int FileSystem::changeMode(int file, mode_t mode) { return ::fchmod(file, mode); }

ssize_t FileSystem::listAttributes(int file, char* names, std::size_t size) { return ::flistxattr(file, names, size); }

ssize_t FileSystem::attribute(int file, const char* name, char* value, std::size_t size) {
    return ::fgetxattr(file, name, value, size);
}

int FileSystem::setAttribute(int file, const char* name, const char* value, std::size_t size) {
    return ::fsetxattr(file, name, value, size, 0);
}

int FileSystem::removeAttribute(int file, const char* name) { return ::fremovexattr(file, name); }

int FileSystem::rename(const std::string& from, const std::string& to) { return std::rename(from.c_str(), to.c_str()); }

int FileSystem::remove(const std::string& path) { return ::unlink(path.c_str()); }

int FileSystem::makeDirectory(const std::string& path) {
    constexpr mode_t forTheUserAlone = 0700;
    return ::mkdir(path.c_str(), forTheUserAlone);
}

int FileSystem::removeDirectory(const std::string& path) { return ::rmdir(path.c_str()); }

}  // namespace BrevisUI
