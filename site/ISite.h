// An open site: everything that can be asked of it and told to it.
#pragma once

#include "site/Limits.h"

#include <QString>

#include <functional>
#include <memory>
#include <utility>

namespace site {

class IBimPhotos;
class IBin;
class IBlobs;
class IBulkFiling;
class ICatalogue;
class IChanges;
class IClientFolders;
class IComments;
class IComponents;
class IDrafts;
class IDrawings;
class IFilings;
class IIntake;
class IIssues;
class IPanelCounts;
class IPdfPhotos;
class IPhotoFacts;
class IPicFiling;
class IRichTexts;
class ISetup;
class IStatistics;

/// What stands on it lasts as long as it does. Operations may take long; where they fail they throw
/// DataError: TooSlow past the deadline, Cancelled when told to stop, with nothing changed.
/// Thread: the one that opened it, except where said.
class ISite {
public:
    virtual ~ISite() = default;

    [[nodiscard]] virtual IBimPhotos& BimPhotos() = 0;
    [[nodiscard]] virtual IPdfPhotos& PdfPhotos() = 0;
    [[nodiscard]] virtual IPhotoFacts& PhotoFacts() = 0;
    [[nodiscard]] virtual IComments& Comments() = 0;
    [[nodiscard]] virtual IComponents& Components() = 0;
    [[nodiscard]] virtual IDrafts& Drafts() = 0;
    [[nodiscard]] virtual IDrawings& Drawings() = 0;
    [[nodiscard]] virtual IIssues& Issues() = 0;
    [[nodiscard]] virtual IRichTexts& RichTexts() = 0;
    [[nodiscard]] virtual IPanelCounts& PanelCounts() = 0;
    [[nodiscard]] virtual ICatalogue& Catalogue() = 0;
    [[nodiscard]] virtual IBin& Bin() = 0;
    [[nodiscard]] virtual IBlobs& Blobs() = 0;
    [[nodiscard]] virtual IPicFiling& PicFiling() = 0;
    [[nodiscard]] virtual ISetup& Setup() = 0;
    [[nodiscard]] virtual IBulkFiling& BulkFiling() = 0;
    [[nodiscard]] virtual IStatistics& Statistics() = 0;
    /// Each has a batch of its own.
    [[nodiscard]] virtual std::unique_ptr<IIntake> NewIntake() = 0;
    [[nodiscard]] virtual IClientFolders& Folders() = 0;
    [[nodiscard]] virtual IChanges& Changes() = 0;
    [[nodiscard]] virtual IFilings& Filings() = 0;

    /// The present time, seconds since 1970. Thread: any.
    [[nodiscard]] virtual qint64 Now() const = 0;
    /// Where it is, for a person.
    [[nodiscard]] virtual QString Place() const = 0;

    using Told = std::function<void(const QString&)>;
    /// Is told, in Chinese, what a person should know of the site; at once what was to tell before.
    virtual void SetTold(Told listener) = 0;

    /// For all questions from now on; answers those that held before.
    virtual Limits SetLimits(Limits limits) = 0;
};

/// Limits for the questions of a scope.
class Within final {
public:
    Within(ISite& owner, Limits limits)
        : m_site(owner), m_before(owner.SetLimits(std::move(limits))) {}
    ~Within() { m_site.SetLimits(std::move(m_before)); }
    Within(const Within&) = delete;
    Within& operator=(const Within&) = delete;

private:
    ISite& m_site;
    Limits m_before;
};

} // namespace site
