#pragma once

#include <string>

#include "plugins/file/copy_progress.h"
#include "plugins/file/work_list.h"
#include "tarvik/async_task.h"

namespace tarvik {

// A run of copyAsync or moveAsync. The destination is the source's new name. What was done before a failure
// or a cancel stays done.
class FileTask : public AsyncTask {
  public:
    FileTask(Transfer kind, std::wstring src, std::wstring dest, const Options& options);

  private:
    HRESULT Work() override;

    void Rename() const;
    void TakeFolder(const std::wstring& src, const std::wstring& dest) const;
    void TakeFile(const std::wstring& src, const std::wstring& dest, CopyProgress& progress) const;
    void MakeParentFolder(const std::wstring& path);

    const Transfer kind_;
    const std::wstring src_;
    const std::wstring dest_;
    const bool replaceExisting_;
    std::wstring folderAbove_;  // the last one that was seen to
};

}  // namespace tarvik
