// SPDX-License-Identifier: MIT
#include "resources/Resources.h"

#include <QDir>

void registerResources()
{
    Q_INIT_RESOURCE(bundle);
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(translations);
}
