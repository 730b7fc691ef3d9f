#include "base/job.h"

namespace tarvik {

UniqueHandle AssignToJob(HANDLE process) {
    UniqueHandle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job.Get(), process);
    return job;
}

}  // namespace tarvik
