// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

typedef struct _GstElement GstElement;

namespace orrin::demo {

/*!
    Tells whether a client has set up the stream that a source element belongs to. The server lets a stream
   that nobody has set up flow into nothing; a source asks here before it makes more than the first packets.
   Asked from the source's streaming thread.
*/
class WantedStream
{
public:
    /*! \a source is the source element, which is linked to its payloader bin. */
    bool isWanted(GstElement *source);

    /*! The end of a payloader's description: packets that nobody takes are thrown away there, without an
     * error. */
    static constexpr const char *Outlet = " ! tee allow-not-linked=true ! identity silent=true";

private:
    bool m_wanted = false;
};

} // namespace orrin::demo
