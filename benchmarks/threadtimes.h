// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/*! The CPU time that this process has taken so far, in seconds, by what its threads do. */
struct ThreadTimes
{
    double all = 0;
    double gui = 0;        //!< the main thread
    double render = 0;     //!< the scene graph's
    double softwareGl = 0; //!< those of a software rasteriser
    double others = 0;
    int threads = 0;

    static ThreadTimes now();
};

/*! The resident memory of this process. */
double residentMiB();
