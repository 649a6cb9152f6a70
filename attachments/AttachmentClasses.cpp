#include "attachments/AttachmentClasses.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "platform/text/TextClasses.h"

const NSClassTable& attachmentClasses()
{
    static const NSClassTable table(textClasses(),
                                    {
                                        &CVLChecklistAttachmentCell::classObject(),
                                        &CVLChecklistTextAttachment::classObject(),
                                        &CVLDividerTextAttachment::classObject(),
                                        &CVLFileAttachment::classObject(),
                                    });
    return table;
}
