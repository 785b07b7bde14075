// Holds nothing: the headers that the tests share are compiled beside it.
