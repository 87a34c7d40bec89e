" Templates named *.scrivolt or *.svt are Scrivolt templates.
au BufRead,BufNewFile *.scrivolt,*.svt setfiletype scrivolt
