{
  "layerStateFile": 1,
  "name": "Empty",
  "description": "",
  "restores": ["on"],
  "savedWithViewport": false,
  "layers": [
  ]
}
