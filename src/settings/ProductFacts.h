#pragma once

#include <QString>

/// What the product's owner states about the product, in one place. Stored as stated, and shown in
/// every language alike.
namespace ProductFacts {

inline const QString displayName = QStringLiteral("Brindlepath Desk");
inline const QString version = QStringLiteral("2026.07.02");
inline const QString copyrightStatement = QStringLiteral("Copyright \u00A9 2026 Brindle Path LLC");
inline const QString rightsStatement = QStringLiteral("All rights reserved.");
inline const QString website = QStringLiteral("https://brindlepath.example");

} // namespace ProductFacts
