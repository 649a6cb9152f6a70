#include "styles/StyleClasses.h"

#include "platform/text/TextClasses.h"
#include "styles/CVLNoteTextStyle.h"

const NSClassTable& styleClasses()
{
    static const NSClassTable table(textClasses(), {&CVLNoteTextStyle::classObject()});
    return table;
}
