#pragma once

#include "support/app_fixture.h"
#include "support/held_app.h"
#include "support/repositories.h"
#include "support/test.h"
