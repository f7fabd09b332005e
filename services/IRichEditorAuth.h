// Whether viewers carry the rich text pane.
#pragma once

namespace KX_DATA {

class IRichEditorAuth {
public:
    virtual ~IRichEditorAuth() = default;

    virtual bool IsRichTextEnabled() = 0;
    virtual bool IsRichTextReadOnly() = 0;
};

} // namespace KX_DATA
