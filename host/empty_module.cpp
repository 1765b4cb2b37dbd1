// A DLL with the plug-in's imports and nothing in it: what "znhost load" holds the plug-in against.
