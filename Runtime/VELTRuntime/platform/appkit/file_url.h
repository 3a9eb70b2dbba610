// URLs of files.
#pragma once

#include "VELTRuntime/platform/foundation/url.h"

#include <QUrl>

namespace velt {

/// A new URL of the file at a path.
inline id fileUrl(const QString& path) {
    return NSURL::withString(QUrl::fromLocalFile(path).toEncoded().toStdString());
}

}  // namespace velt
