#include "platform/text/TextClasses.h"

#include "platform/foundation/FoundationClasses.h"
#include "platform/text/ColorCoding.h"
#include "platform/text/FontCoding.h"
#include "platform/text/NSAttributedStringObject.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSShadow.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/text/NSTextTable.h"
#include "platform/text/PatternImage.h"

const NSClassTable& textClasses()
{
    static const NSClassTable table(foundationClasses(),
                                    {
                                        &NSAttributedStringObject::classObject(),
                                        &NSAttributedStringObject::mutableClassObject(),
                                        &NSAttributedStringObject::textStorageClassObject(),
                                        &NSColor::classObject(),
                                        &NSColorSpace::classObject(),
                                        &NSFont::classObject(),
                                        &NSFontDescriptor::classObject(),
                                        &NSParagraphStyle::classObject(),
                                        &NSParagraphStyle::mutableClassObject(),
                                        &NSShadow::classObject(),
                                        &NSTextAttachment::classObject(),
                                        &NSTextBlock::classObject(),
                                        &NSTextList::classObject(),
                                        &NSTextTab::classObject(),
                                        &NSTextTable::classObject(),
                                        &NSTextTableBlock::classObject(),
                                        &PatternImage::PDFClass(),
                                        &PatternImage::bitmapClass(),
                                        &PatternImage::imageClass(),
                                        &UIColorClass(),
                                        &UIFontClass(),
                                    });
    return table;
}
