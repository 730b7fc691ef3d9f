#pragma once

#include <string>

#include "plugins/file/copy_progress.h"
#include "plugins/file/work_list.h"
#include "tarvik/async_task.h"

namespace tarvik {

// copyAsync or moveAsync. The destination is the new path of the source, not the folder that receives it. A
// failed or cancelled operation is not undone.
class FileTask : public AsyncTask {
  public:
    FileTask(FileOperation operation, std::wstring src, std::wstring dest, const ScriptObject& options);

  private:
    HRESULT Work() override;

    void Rename() const;
    void TransferFolder(const std::wstring& src, const std::wstring& dest) const;
    void TransferFile(const std::wstring& src, const std::wstring& dest, CopyProgress& progress) const;
    void CreateParentFolder(const std::wstring& path);

    const FileOperation operation_;
    const std::wstring src_;
    const std::wstring dest_;
    const bool replaceExisting_;
    std::wstring parentFolder_;  // the one that CreateParentFolder created last
};

}  // namespace tarvik
