// Reference-counted base of the toolkit's objects: created with one reference, freed by the last forget().
#pragma once

class CBaseObject
{
  public:
    CBaseObject() = default;
    CBaseObject(const CBaseObject&) : nbReference(1) {}
    CBaseObject& operator=(const CBaseObject&) = delete;

    // Takes one more reference.
    void remember() { ++nbReference; }
    // Drops one reference; deletes the object when it was the last.
    void forget();
    int getNbReference() const { return nbReference; }

  protected:
    virtual ~CBaseObject() = default;

  private:
    int nbReference = 1;
};
