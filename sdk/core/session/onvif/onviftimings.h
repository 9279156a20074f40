// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace orrin {

/*! The times of ONVIF sessions. The defaults are the product's; tests shorten them. */
struct OnvifTimings
{
    using Milliseconds = std::chrono::milliseconds;

    Milliseconds loginDeadline{10000}; //!< from open() to an outcome of any kind
    Milliseconds handshake{
        4000}; //!< until a connected peer that answers no TLS greeting is asked without TLS
    Milliseconds pollInterval{
        10000}; //!< between the questions whether a device without the site extension is there
    Milliseconds pollTimeout{5000};
    Milliseconds changesTimeout{30000}; //!< of a request for changes, which a server may keep for 20 s
    Milliseconds changesPause{250};     //!< between two of them, whatever the server does
    Milliseconds reconnectFirst{1000};
    Milliseconds reconnectLongest{60000};
    Milliseconds pullWait{20000};             //!< how long a device may keep a request for events
    Milliseconds pullPause{250};              //!< between the beginnings of two of them
    Milliseconds subscriptionLifetime{60000}; //!< that is asked for
    Milliseconds ptzTimeout{2000}; //!< after which a camera that moves stops by itself
    Milliseconds ptzRenewal{700};  //!< until a camera that moves is told so again
    Milliseconds ptzAnswer{4000};  //!< of a request to steer a camera
    Milliseconds ptzStopAgain{250}; //!< until a stop without an answer is repeated; doubled each time
    Milliseconds boundsRenewal{5000}; //!< of what is known of recordings, while somebody asks
    Milliseconds endpointTimeout{8000}; //!< of a request for a stream's address
};

} // namespace orrin
