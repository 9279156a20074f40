// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orrin {

/*! What all error values offer. */
class ErrorInterface
{
public:
    virtual ~ErrorInterface() = default;
    /*! The text for the user. */
    virtual QString toString() const = 0;
    /*! The error's code; 0 is no error. */
    virtual int errorId() const = 0;
    virtual void reset() = 0;
    virtual bool hasError() const = 0;

protected:
    ErrorInterface() = default;
    ErrorInterface(const ErrorInterface &) = default;
    ErrorInterface &operator=(const ErrorInterface &) = default;
};

} // namespace orrin
