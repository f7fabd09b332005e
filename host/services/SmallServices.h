// The services of a few lines: action log, labels, recent searches, names of states, progress.
#pragma once

#include "host/services/SiteService.h"
#include "services/CSoapError.h"
#include "services/IConvertProjStateTool.h"
#include "services/IExProgress.h"
#include "services/IKXDocMng.h"
#include "services/IKXProgressStrip.h"
#include "services/IKXSysMng.h"
#include "services/IRecentSearchMng.h"

namespace host {

/// All over the session. Thread: user interface.
class SysMng final : public KX_DATA::IKXSysMng, private SiteService {
public:
    using SiteService::SiteService;

    void WriteActionLog(const QString& action) override;
};

class DocMng final : public KX_DATA::IKXDocMng, private SiteService {
public:
    using SiteService::SiteService;

    qint32 GetLabels(qint32 kind, std::vector<KX_DATA::LabelEntry>& labels) override;
    /// A name that there is already gives the id that it has.
    qint32 AddLabel(qint32 kind, const QString& label, qint32 value, const QString& parent,
                    QString& labelId) override;
};

/// Each user has their own list.
class RecentSearchMng final : public KX_DATA::IRecentSearchMng, private SiteService {
public:
    using SiteService::SiteService;

    void SaveRecent(const std::vector<QString>& keywords) override;
    void GetRecent(std::vector<QString>& keywords) override;
};

class ConvertProjStateTool final : public KX_DATA::IConvertProjStateTool {
public:
    void StateToText(QString& text, qint32 state) override;
    qint32 TextToState(const QString& text) override;
};

/// Stands in for the progress window where the program has none.
class SilentProgress final : public KX_DATA::IExProgress {
public:
    void Close() override {}
    void Create(quint64 /*parent*/, const QString& /*name*/) override {}
    void Show() override {}
    void SetTitle(const QString& /*title*/) override {}
    void SetRange(qint32 /*count*/) override {}
    void SetPos(qint32 /*done*/) override {}
};

/// Stands in for the progress strip where the program has none.
class SilentStrip final : public KX_DATA::IKXProgressStrip {
public:
    void ShowProgressBar(const QString& /*text*/, qint32 /*value*/) override {}
    void SetShowInfo(const QString& /*text*/) override {}
    void CloseProgressBar() override {}
};

/// What was said last of the session that is open.
class SoapError final : public KX_DATA::CSoapError, private SiteService {
public:
    using SiteService::SiteService;

    void GetLastError(QString& text) override { text = Around().LastRefusal(); }
};

} // namespace host
