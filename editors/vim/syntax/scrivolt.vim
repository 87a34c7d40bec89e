" Vim syntax file for Scrivolt templates: text with script blocks <# ... #>.
if exists("b:current_syntax")
  finish
endif

syn case ignore
syn match   scrivoltEscape     "<#<#\|#>#>"
syn region  scrivoltScript     matchgroup=scrivoltDelimiter start="<#\(<#\)\@!" end="#>" contains=@scrivoltStatements
syn cluster scrivoltStatements contains=scrivoltComment,scrivoltFunction,scrivoltSeparator,scrivoltArgument,scrivoltString,scrivoltReference,scrivoltContent
syn region  scrivoltComment    start="{" end="}" contained contains=scrivoltComment,scrivoltCommentPair
syn match   scrivoltCommentPair "{{\|}}" contained
syn match   scrivoltFunction   "\(\(<#\|;\|(\)\s*\)\@<=[A-Za-z0-9_-]\+\(\s*:\)\@!" contained
syn match   scrivoltSeparator  ";" contained
syn match   scrivoltArgument   "[A-Za-z0-9_-]\+\ze\s*:" contained
syn match   scrivoltReference  ":\s*\zs[A-Za-z0-9_-]\+\(\.\(#-\=[0-9]\+\|[A-Za-z0-9_-]\+\)\)*" contained
syn region  scrivoltString     start=+"+ skip=+""+ end=+"+ contained contains=scrivoltQuote
syn match   scrivoltQuote      +""+ contained
syn region  scrivoltContent    matchgroup=scrivoltDelimiter start="(" end=")" contained contains=@scrivoltStatements,scrivoltContentText
syn region  scrivoltContentText matchgroup=scrivoltDelimiter start="#>" end="<#" contained contains=scrivoltEscape

hi def link scrivoltEscape      SpecialChar
hi def link scrivoltDelimiter   Delimiter
hi def link scrivoltComment     Comment
hi def link scrivoltCommentPair Comment
hi def link scrivoltFunction    Function
hi def link scrivoltSeparator   Delimiter
hi def link scrivoltArgument    Identifier
hi def link scrivoltReference   Type
hi def link scrivoltString      String
hi def link scrivoltQuote       SpecialChar

let b:current_syntax = "scrivolt"
