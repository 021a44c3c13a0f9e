# cmake -D FILE=... -D RESULT=... -P MarkUTF8.cmake: a copy that begins with UTF-8's mark.  Without
# it the toolkit reads a file of texts in the encoding of the user's locale, and complains.
file(READ ${FILE} text)
string(ASCII 239 187 191 mark)
file(WRITE ${RESULT} "${mark}${text}")
