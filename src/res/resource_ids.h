/* Every resource id, for the resource script and the code. */
#pragma once

#define IDS_COMPANION_MODULE 62
