#include "plugins/PluginHost.h"

#include "platform/Files.h"
#include "platform/ProgramContext.h"

#include <QFileInfo>
#include <QHash>
#include <QLibrary>

namespace plugins {
namespace {

const QString kRegistryName = QStringLiteral("TKPlugins.reg");
const char* const kMembers[] = {"TKPlugin_name", "TKPlugin_des", "showmainform"};

QString registryPath() { return platform::programContext.inProgramFolder(kRegistryName); }

std::vector<RegistryEntry> readRegistry()
{
    QByteArray bytes;
    if (!platform::readFile(registryPath(), bytes))
        return {};
    return parseRegistry(bytes);
}

// A library stays loaded once it is: a plug-in's windows may outlive the
// call that opened them, and unloading code they run would take Torvik down.
QLibrary* loadedLibrary(const QString& path)
{
    static QHash<QString, QLibrary*> loaded;
    if (QLibrary* lib = loaded.value(path))
        return lib;
    auto* lib = new QLibrary(path);
    if (!lib->load()) {
        delete lib;
        return nullptr;
    }
    loaded.insert(path, lib);
    return lib;
}

} // namespace

std::vector<RegistryEntry> parseRegistry(const QByteArray& text)
{
    std::vector<RegistryEntry> entries;
    for (QByteArray line : text.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        const qsizetype tab = line.indexOf('\t');
        if (tab <= 0 || tab == line.size() - 1)
            continue;
        const QString cls = QString::fromUtf8(line.left(tab));
        const QString path = QString::fromUtf8(line.mid(tab + 1));
        std::erase_if(entries, [&](const RegistryEntry& e) { return e.first.compare(cls, Qt::CaseInsensitive) == 0; });
        entries.emplace_back(cls, path);
    }
    return entries;
}

QByteArray registryText(const std::vector<RegistryEntry>& entries)
{
    QByteArray text;
    for (const auto& [cls, path] : entries)
        text += cls.toUtf8() + '\t' + path.toUtf8() + "\r\n";
    return text;
}

QString pluginClassName(const QString& fileName) { return fileName.left(fileName.size() - 4) + QStringLiteral(".TKPLUGIN"); }

QString pluginFolder() { return platform::programContext.inProgramFolder(QStringLiteral("plugins")); }

Registration registerLibrary(const QString& libraryPath)
{
    QLibrary* lib = loadedLibrary(libraryPath);
    if (!lib)
        return Registration::NotLoaded;
    bool any = false;
    for (const char* member : kMembers)
        any = any || lib->resolve(member) != nullptr;
    if (!any)
        return Registration::NoMembers;
    std::vector<RegistryEntry> entries = readRegistry();
    const QString cls = pluginClassName(QFileInfo(libraryPath).fileName());
    std::erase_if(entries, [&](const RegistryEntry& e) { return e.first.compare(cls, Qt::CaseInsensitive) == 0; });
    entries.emplace_back(cls, QFileInfo(libraryPath).absoluteFilePath());
    return platform::writeFile(registryPath(), registryText(entries)) ? Registration::Done
                                                                       : Registration::RegistryUnwritable;
}

std::optional<Component> Component::create(const QString& className)
{
    for (const auto& [cls, path] : readRegistry()) {
        if (cls.compare(className, Qt::CaseInsensitive) != 0)
            continue;
        if (!loadedLibrary(path))
            return std::nullopt;
        return Component(path);
    }
    return std::nullopt;
}

void* Component::resolve(const char* member) const
{
    return reinterpret_cast<void*>(QLibrary::resolve(path_, member));
}

std::optional<QString> Component::text(const char* member) const
{
    auto fn = reinterpret_cast<const char* (*)()>(resolve(member));
    if (!fn)
        return std::nullopt;
    const char* value = fn();
    return QString::fromUtf8(value ? value : "");
}

bool Component::call(const char* member) const
{
    auto fn = reinterpret_cast<int (*)()>(resolve(member));
    return fn && fn() == 0;
}

} // namespace plugins
