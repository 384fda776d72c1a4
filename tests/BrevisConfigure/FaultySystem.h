// The real system, of which chosen calls fail.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "disk/BrevisUI_FileSystem.h"

namespace BrevisUI {

class FaultySystem : public FileSystem {
public:
    // What the call is told to fail with, or 0. It gets the number of the call, from 0, its name and what it is about.
    using Choose = std::function<int(int number, const std::string& call, const std::string& path)>;

    explicit FaultySystem(Choose choose) : choose_(std::move(choose)) {}

    int calls() const { return calls_; }

    int open(const std::string& path, int flags, mode_t mode) override {
        return fails("open", path) ? -1 : FileSystem::open(path, flags, mode);
    }
    // The file is closed all the same, as on a real system.
    int close(int file) override {
        const int result = FileSystem::close(file);
        return fails("close") ? -1 : result;
    }
    ssize_t read(int file, char* buffer, std::size_t size) override {
        return fails("read") ? -1 : FileSystem::read(file, buffer, size);
    }
    // A write that fails has written something.
    ssize_t write(int file, const char* bytes, std::size_t size) override {
        const bool partly = size > 10;
        if (!partly) return fails("write") ? -1 : FileSystem::write(file, bytes, size);
        const ssize_t count = FileSystem::write(file, bytes, size / 2);
        return fails("write") ? -1 : count;
    }
    int allocate(int file, off_t size) override { return fails("allocate") ? -1 : FileSystem::allocate(file, size); }
    int truncate(int file, off_t size) override { return fails("truncate") ? -1 : FileSystem::truncate(file, size); }
    off_t seek(int file, off_t place) override { return fails("seek") ? -1 : FileSystem::seek(file, place); }
    // No power will be cut, and syncing takes long.
    int sync(int) override { return fails("sync") ? -1 : 0; }
    int syncAll(int) override { return fails("syncAll") ? -1 : 0; }
    int lock(int file) override { return fails("lock") ? -1 : FileSystem::lock(file); }
    int status(int file, struct stat& s) override { return fails("status") ? -1 : FileSystem::status(file, s); }
    int status(const std::string& path, struct stat& s) override {
        return fails("status", path) ? -1 : FileSystem::status(path, s);
    }
    int mayWrite(const std::string& path) override { return fails("mayWrite", path) ? -1 : FileSystem::mayWrite(path); }
    int changeOwner(int file, uid_t owner, gid_t group) override {
        return fails("changeOwner") ? -1 : FileSystem::changeOwner(file, owner, group);
    }
    int changeMode(int file, mode_t mode) override {
        return fails("changeMode") ? -1 : FileSystem::changeMode(file, mode);
    }
    ssize_t listAttributes(int file, char* names, std::size_t size) override {
        return fails("listAttributes") ? -1 : FileSystem::listAttributes(file, names, size);
    }
    ssize_t attribute(int file, const char* name, char* value, std::size_t size) override {
        return fails("attribute") ? -1 : FileSystem::attribute(file, name, value, size);
    }
    int setAttribute(int file, const char* name, const char* value, std::size_t size) override {
        return fails("setAttribute") ? -1 : FileSystem::setAttribute(file, name, value, size);
    }
    int removeAttribute(int file, const char* name) override {
        return fails("removeAttribute") ? -1 : FileSystem::removeAttribute(file, name);
    }
    int rename(const std::string& from, const std::string& to) override {
        return fails("rename", from) ? -1 : FileSystem::rename(from, to);
    }
    int remove(const std::string& path) override { return fails("remove", path) ? -1 : FileSystem::remove(path); }
    int makeDirectory(const std::string& path) override {
        return fails("makeDirectory", path) ? -1 : FileSystem::makeDirectory(path);
    }
    int removeDirectory(const std::string& path) override {
        return fails("removeDirectory", path) ? -1 : FileSystem::removeDirectory(path);
    }

private:
    bool fails(const char* call, const std::string& path = {}) {
        const int error = choose_(calls_++, call, path);
        if (error != 0) errno = error;
        return error != 0;
    }

    const Choose choose_;
    int calls_ = 0;
};

}  // namespace BrevisUI
