// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

class AbstractStreamProcessor;
class QmlRendering;

/*! The rendering behind the first display of \a processor's first output; null when any step on the way is absent or of another
    kind. Main thread. Borrowed: hold it in a QPointer beyond the call, since it ends with the stream. */
QmlRendering *renderingOf(const AbstractStreamProcessor &processor);

} // namespace orrin
