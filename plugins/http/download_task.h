#pragma once

#include <cstdint>
#include <string>

#include "tarvik/async_task.h"

namespace tarvik {

// downloadToFile. Creates the file once the length of the body is known, replacing an existing file, and
// deletes it if the download does not complete.
class DownloadTask : public AsyncTask {
  public:
    DownloadTask(std::wstring url, std::wstring path, const ScriptObject& options);

  private:
    HRESULT Work() override;
    void ReportProgress(std::uint32_t done, std::uint32_t total);

    const std::wstring url_;
    const std::wstring path_;
};

}  // namespace tarvik
