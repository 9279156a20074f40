// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/wantedstream.h"

#include <gst/gst.h>

#include <cstdio>
#include <memory>

namespace orrin::demo {

namespace {

struct Unref
{
    void operator()(gpointer object) const { gst_object_unref(object); }
};

template <typename Type> using Held = std::unique_ptr<Type, Unref>;

/*! The pad behind the source pad of \a element, outside of the bins that it stands in. */
Held<GstPad> next(GstElement *element)
{
    const Held<GstPad> pad(gst_element_get_static_pad(element, "src"));
    Held<GstPad> peer(pad ? gst_pad_get_peer(pad.get()) : nullptr);
    const Held<GstObject> parent(peer ? gst_object_get_parent(GST_OBJECT(peer.get())) : nullptr);
    if (parent && GST_IS_GHOST_PAD(parent.get()))
        peer.reset(gst_pad_get_peer(GST_PAD(parent.get())));
    return peer;
}

Held<GstElement> elementOf(const Held<GstPad> &pad)
{
    return Held<GstElement>(pad ? gst_pad_get_parent_element(pad.get()) : nullptr);
}

} // namespace

bool WantedStream::isWanted(GstElement *source)
{
    if (m_wanted)
        return true;
    const Held<GstElement> payloader = elementOf(next(source));
    const Held<GstPad> inlet = payloader ? next(payloader.get()) : nullptr;
    const Held<GstElement> session = elementOf(inlet);
    if (!session)
        return false;
    // The session manager's outlet has the number of the inlet; it leads on once the stream is set up.
    const std::unique_ptr<gchar, decltype(&g_free)> name(gst_pad_get_name(inlet.get()), g_free);
    unsigned number = 0;
    if (std::sscanf(name.get(), "send_rtp_sink_%u", &number) != 1)
        return false;
    const std::unique_ptr<gchar, decltype(&g_free)> outletName(g_strdup_printf("send_rtp_src_%u", number),
                                                              g_free);
    const Held<GstPad> outlet(gst_element_get_static_pad(session.get(), outletName.get()));
    m_wanted = outlet && gst_pad_is_linked(outlet.get());
    return m_wanted;
}

} // namespace orrin::demo
