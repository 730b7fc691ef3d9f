#pragma once

#include <cstdint>
#include <string>

#include "tarvik/async_task.h"

namespace tarvik {

// A run of downloadToFile. The file is made when the server has said how long the body is, replacing one that
// is there, and removed again unless it becomes complete.
class DownloadTask : public AsyncTask {
  public:
    DownloadTask(std::wstring url, std::wstring path, const Options& options);

  private:
    HRESULT Work() override;
    void Tell(std::uint32_t done, std::uint32_t total);

    const std::wstring url_;
    const std::wstring path_;
};

}  // namespace tarvik
