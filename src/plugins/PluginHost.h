#pragma once
// Plug-in components: the registry that maps a class name to its library,
// and the late-bound calls of a component's members by name. No widgets.
#include <QByteArray>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace plugins {

// One entry of the registry: a class name and the full path of its library.
using RegistryEntry = std::pair<QString, QString>;

// The registry file: one "class<TAB>library" line for each class, CR LF.
// Lines without a tab are skipped; a later line of a class replaces the
// earlier one, class names compared without regard to case.
std::vector<RegistryEntry> parseRegistry(const QByteArray& text);
QByteArray registryText(const std::vector<RegistryEntry>& entries);

// "<stem>.TKPLUGIN" from a library's file name "<stem>.dll".
QString pluginClassName(const QString& fileName);
// The program folder's "plugins" folder, as spelt on disk.
QString pluginFolder();

enum class Registration { Done, NotLoaded, NoMembers, RegistryUnwritable };

// Loads the library and enters its class in the registry file in the
// program folder, the way the platform's registration tool does: a library
// that loads and exports any of the members is entered.
Registration registerLibrary(const QString& libraryPath);

// An instance of a registered class, whose members are called by name.
class Component {
public:
    // Nothing when the class isn't registered or its library doesn't load.
    static std::optional<Component> create(const QString& className);
    // The text a member returns; nothing when there is no such member.
    std::optional<QString> text(const char* member) const;
    // Calls a method; false when it is missing or reports a failure.
    bool call(const char* member) const;

private:
    explicit Component(QString path) : path_(std::move(path)) {}
    void* resolve(const char* member) const;
    QString path_;
};

} // namespace plugins
