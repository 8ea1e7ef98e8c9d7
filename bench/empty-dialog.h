/* Read by the resource compiler too. */
#pragma once

#define IDD_EMPTY 100
