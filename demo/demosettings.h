// What the demo itself remembers.
#ifndef MOXDEMO_DEMOSETTINGS_H
#define MOXDEMO_DEMOSETTINGS_H

#include <QSettings>

namespace MoxDemo {

/** Settings of the demo, apart from what the library keeps: `moxdemo.conf` in the user's configuration directory. */
class DemoSettings : public QSettings
{
public:
    DemoSettings() : QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("moxdemo")) { }
};

} // namespace MoxDemo

#endif
