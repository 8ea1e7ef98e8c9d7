#pragma once

// "°C" as the host and the files have it, in Windows-1252. A macro, so that it joins other literals; within
// one literal the escape would swallow the C.
#define DEGREES_C \
    "\xB0"        \
    "C"
