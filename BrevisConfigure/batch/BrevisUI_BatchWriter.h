// Writes the files of one batch command: together they are one run, which --undo takes back as a whole.
#pragma once

#include "batch/BrevisUI_BatchHost.h"
#include "disk/BrevisUI_FileWriter.h"

namespace BrevisUI {

class BatchWriter {
public:
    // The host must outlive the object.
    explicit BatchWriter(BatchHost& host)
        : host_(host), store_(system_, host.cacheDirectory()), writer_(system_, &store_) {}

    FileWriter& writer() { return writer_; }
    // To be called behind the last file. The host is told what has not arrived.
    void finish();

private:
    BatchHost& host_;
    FileSystem system_;
    RunStore store_;
    FileWriter writer_;
};

}  // namespace BrevisUI
