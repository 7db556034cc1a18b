#include "text/messages.h"

#include "host/text/wide_format.h"

#include <algorithm>
#include <cassert>
#include <cstdarg>
#include <iterator>

namespace {

struct MessageRow {
    Message id;
    const wchar_t* text;
};

// By number.
constexpr MessageRow kMessages[] = {
    {Message::pluginName, L"kelmaro"},
    {Message::noFileLoaded, L"Error: no file loaded.\n"},
    {Message::objectPrompt, L"Object: "},
    {Message::objectNotFound, L"Error: object not found.\n"},
    {Message::dependenciesNotLoaded, L"Error: unable to load object dependencies.\n"},
    {Message::noObjectsSelected, L"Error: no objects selected.\n"},
    {Message::completed, L"Completed: %i\n"},
    {Message::graphicsOrClassesPrompt, L"Mode [0 (properties)/1 (classes)]<%i>: "},
    {Message::completedOf, L"Completed: %i/%i\n"},
    {Message::descriptionFilter, L"Text files (*.txt)|*.txt||"},
    {Message::usePropertiesPrompt, L"Use properties? [0/1]<%i>: "},
    {Message::useObjectsPrompt, L"Use objects? [0/1]<%i>: "},
    {Message::matchPrompt, L"Match [0/1]<1>: "},
    {Message::tableDiffersBox, L"Error: table '%s' does not match existing definition."},
    {Message::errorTitle, L"Error"},
    {Message::firstOrLastPrompt, L"Mode (First, Last)<First>: "},
    {Message::completedPlain, L"Completed\n"},
    {Message::invalidValues, L"Invalid value(s)."},
    {Message::fieldColumn, L"Field"},
    {Message::typeColumn, L"Type"},
    {Message::valueColumn, L"Value"},
    {Message::rangeColumn, L"Range"},
    {Message::pointPrompt, L"Point:\n"},
    {Message::textPrompt, L"Text:\n"},
    {Message::textPromptWithDefault, L"Text<%s>:\n"},
    {Message::invalidBlockReference, L"%i: error: invalid 'blockreference' definition\n"},
    {Message::unableToLoad, L"error: unable to load '%s'\n"},
    {Message::invalidClass, L"%i: error: invalid 'class' definition\n"},
    {Message::redefinition, L"%i: error: redefinition of '%s'\n"},
    {Message::invalidLayout, L"%i: error: invalid 'layout' definition\n"},
    {Message::invalidLayer, L"%i: error: invalid 'layer' definition\n"},
    {Message::invalidLinetype, L"%i: error: invalid 'linetype' definition\n"},
    {Message::invalidMline, L"%i: error: invalid 'mline' definition\n"},
    {Message::invalidObject, L"%i: error: invalid object definition\n"},
    {Message::tableIllFormed, L"%i: warning: table '%s' ill-formed\n"},
    {Message::tableDiffers, L"%i: error: table '%s' does not match existing definition\n"},
    {Message::invalidObjName, L"%i: error: invalid 'obj_name' definition\n"},
    {Message::objNameUndefined, L"%i: error: 'obj_name' undefined\n"},
    {Message::objTypeUndefined, L"%i: error: 'obj_type' undefined\n"},
    {Message::invalidObjProp, L"%i: warning: invalid 'obj_prop' definition\n"},
    {Message::invalidObjType, L"%i: error: invalid 'obj_type' definition\n"},
    {Message::invalidOdName, L"%i: error: invalid 'od_name' definition\n"},
    {Message::odNameUndefined, L"%i: error: 'od_name' undefined\n"},
    {Message::invalidOdFld, L"%i: error: invalid 'od_fld' definition\n"},
    {Message::invalidOdKey, L"%i: error: invalid 'od_key' definition\n"},
    {Message::invalidPattern, L"%i: error: invalid 'pattern' definition\n"},
    {Message::invalidTextStyle, L"%i: error: invalid 'textstyle' definition\n"},
    {Message::invalidVariable, L"%i: error: invalid 'variable' definition\n"},
    {Message::unknownVariable, L"%i: warning: invalid variable '%s'\n"},
    {Message::invalidSyntax, L"%i: error: invalid syntax: '%s'\n"},
    {Message::classNotClosed, L"error: invalid class definition\n"},
    {Message::tableConflict, L"%i: error: conflicting definitions for table '%s'\n"},
    {Message::blockNotFound, L"warning: block '%s' not found\n"},
    {Message::layerNotFound, L"warning: layer '%s' not found\n"},
    {Message::linetypeNotFound, L"warning: linetype '%s' not found\n"},
    {Message::mlineNotFound, L"warning: mline '%s' not found\n"},
    {Message::patternNotFound, L"warning: pattern '%s' not found\n"},
    {Message::textStyleNotFound, L"warning: textstyle '%s' not found\n"},
    {Message::undefinedObject, L"error: '%s' undefined\n"},
    {Message::objectDependenciesNotLoaded, L"error: unable to load dependecies for object '%s'\n"},
    {Message::invalidValue, L"error: invalid value\n"},
    {Message::firstKeyword, L"first"},
    {Message::lastKeyword, L"last"},
    {Message::invalidPath, L"error: invalid path: '%s'\n"},
    {Message::objectWithoutType, L"error: invalid object\n"},
    {Message::invalidValuesContinue, L"Invalid value(s). Continue?"},
    {Message::warningTitle, L"Warning"},
    {Message::selectedOpen, L"Selected: %i ("},
    {Message::invalidMleader, L"%i: error: invalid 'mleader' definition\n"},
    {Message::mleaderNotFound, L"warning: mleader '%s' not found\n"},
    {Message::invalidDimension, L"%i: error: invalid 'dimension' definition\n"},
    {Message::dimensionNotFound, L"warning: dimension '%s' not found\n"},
    {Message::unableToOpen, L"warning: unable to open '%s'\n"},
    {Message::invalidDefine, L"%i: error: invalid definition\n"},
    {Message::macroRedefinition, L"%i: warning: redefinition of '%s'\n"},
    {Message::drawingNotSupported, L"Drawing not supported."},
    {Message::boxTitle, L"KELMARO message"},
    {Message::invalidFont, L"%i: error: invalid 'font' definition\n"},
    {Message::alreadyExists, L"warning: '%s' already exists\n"},
    {Message::filePrompt, L"File: "},
    {Message::descriptionColumn, L"Description"},
    {Message::currentOrFilePrompt, L"Mode [0 (current)/1 (file)]<%i>: "},
    {Message::drawingFilter, L"AutoCAD drawings (*.dwg)|*.dwg||"},
    {Message::invalidBlockReferenceFile, L"%i: error: invalid 'blockreferencefile' definition\n"},
    {Message::allOrDefaultPrompt, L"Mode [0 (all)/1 (default)]<"},
    {Message::fileNotOpened, L"Error: unable to open '%s'.\n"},
    {Message::invalidFormat, L"Error: invalid format (%%T/%%t, %%i are required).\n"},
    {Message::formatPrompt, L"Format<%s>: "},
    {Message::selected, L"Selected: %i"},
    {Message::checkNonRequiredPrompt, L"Check non-required fields [0/1]<%i>: "},
    {Message::undrawablePrompt, L"Undrawable [0/1]<%i>: "},
    {Message::fieldRedefinition, L"%i: error: redefinition of od_fld '%s'\n"},
    {Message::recursiveDefinition, L"%i: warning: recursive definition\n"},
};

} // namespace

const wchar_t* textOf(Message id)
{
    const auto found =
        std::lower_bound(std::begin(kMessages), std::end(kMessages), id,
                         [](const MessageRow& row, Message wanted) { return row.id < wanted; });
    assert(found != std::end(kMessages) && found->id == id);
    return found->text;
}

namespace detail {

std::wstring fillIn(const wchar_t* pattern, ...)
{
    std::va_list arguments;
    va_start(arguments, pattern);
    std::wstring text = host::formatList(pattern, arguments);
    va_end(arguments);
    return text;
}

} // namespace detail
