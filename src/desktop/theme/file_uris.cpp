#include "desktop/theme/file_uris.h"

#include <QDir>
#include <algorithm>
#include <utility>

namespace plimo {

namespace {

// The path of an address as Windows writes it: "/C:/Music" is "C:\\Music".
QByteArray windowsPath(QByteArray path) {
  if (path.size() > 2 && path.at(2) == ':') path.remove(0, 1);
  return path.replace('/', '\\');
}

}  // namespace

QByteArray fileUri(std::string_view path) {
  return "file://" + QByteArray(path.data(), static_cast<qsizetype>(path.size())).toPercentEncoding("/");
}

std::optional<std::string> pathOfUri(QByteArrayView uri) {
  constexpr QByteArrayView scheme = "file:";
  if (uri.first(std::min(uri.size(), scheme.size())).compare(scheme, Qt::CaseInsensitive) != 0) return std::nullopt;
  QByteArrayView rest = uri.sliced(scheme.size());
  // An address may name the host, between "//" and the path. Only this computer's files are local.
  if (rest.startsWith("//")) {
    rest = rest.sliced(2);
    const qsizetype slash = rest.indexOf('/');
    if (slash < 0) return std::nullopt;
    const QByteArrayView host = rest.first(slash);
    if (!host.isEmpty() && host.compare("localhost", Qt::CaseInsensitive) != 0) return std::nullopt;
    rest = rest.sliced(slash);
  }
  if (!rest.startsWith('/')) return std::nullopt;
  QByteArray path = QByteArray::fromPercentEncoding(rest.toByteArray());
  if (path.contains('\0')) return std::nullopt;
  if (QDir::separator() == QLatin1Char('\\')) path = windowsPath(std::move(path));
  return path.toStdString();
}

std::vector<std::string> pathsOfUriList(const QByteArray& list) {
  std::vector<std::string> paths;
  for (const QByteArray& line : list.split('\n')) {
    if (auto path = pathOfUri(line.trimmed())) paths.push_back(std::move(*path));
  }
  return paths;
}

}  // namespace plimo
