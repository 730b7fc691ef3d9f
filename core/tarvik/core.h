#pragma once

// The whole public core, for plug-in libraries; start with tarvik/library.h.

#include "tarvik/async_task.h"
#include "tarvik/library.h"
#include "tarvik/marshaled_object.h"
#include "tarvik/owners.h"
#include "tarvik/script_object.h"
#include "tarvik/stream.h"
#include "tarvik/text.h"
#include "tarvik/worker.h"
