#include "platform/html/HTMLDefaultRules.h"

namespace {

constexpr std::string_view kDefaultSheet = R"(
address,article,aside,body,caption,center,dd,details,dialog,dir,div,dl,dt,fieldset,figcaption,figure,footer,form,
h1,h2,h3,h4,h5,h6,header,hgroup,html,legend,li,listing,main,menu,nav,ol,optgroup,option,p,plaintext,pre,search,
section,summary,table,tbody,td,textarea,tfoot,th,thead,tr,ul,xmp,hr,blockquote{display:block}
area,audio,canvas,datalist,embed,head,iframe,link,math,meta,noembed,noframes,param,script,select,style,
svg,template,title,video{display:none}
p,dl,ol,ul,menu,dir,pre,listing,xmp,plaintext,figure{margin:1em 0}
blockquote{margin:1em 0;padding-left:10px;border-left:3px solid #aaa}
dd{margin-left:40px}
h1{font-size:2em;font-weight:bold;margin:.67em 0}
h2{font-size:1.5em;font-weight:bold;margin:.83em 0}
h3{font-size:1.17em;font-weight:bold;margin:1em 0}
h4{font-weight:bold;margin:1.33em 0}
h5{font-size:.83em;font-weight:bold;margin:1.67em 0}
h6{font-size:.67em;font-weight:bold;margin:2.33em 0}
b,strong,th{font-weight:bold}
i,em,cite,dfn,var,address{font-style:italic}
code,kbd,samp,tt,pre,listing,xmp,plaintext{font-family:monospace}
pre,listing,xmp,plaintext,textarea{white-space:pre}
u,ins{text-decoration:underline}
s,strike,del{text-decoration:line-through}
big{font-size:larger}
small{font-size:smaller}
sub{vertical-align:sub}
sup{vertical-align:super}
center,caption,th{text-align:center}
td,th{vertical-align:middle;padding:1px}
table{white-space:normal}
hr{text-align:center}
)";

} // namespace

const HTMLStyleRules& defaultHTMLRules()
{
    static const auto rules = [] {
        HTMLStyleRules made;
        made.addSheet(kDefaultSheet);
        return made;
    }();
    return rules;
}

bool isBlockElement(std::string_view name)
{
    HTMLTag tag;
    tag.name = name;
    const auto rules = defaultHTMLRules().declarationsFor(tag);
    return !rules.empty() && !rules.front()->all().empty() && rules.front()->all().front().value == "block";
}
