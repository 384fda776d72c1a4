// Joins the writer to the messages of the file job.
#include "batch/BrevisUI_BatchWriter.h"

#include "BrevisUI_FileJob.h"

namespace BrevisUI {

void BatchWriter::finish() { tellFailures(host_, writer_.finish()); }

}  // namespace BrevisUI
